#import "platform/macos/app/MacApplication.h"

#import "platform/macos/support/Text.h"

#import <AppKit/AppKit.h>

#if !__has_feature(objc_arc)
#error "Compile this file with -fobjc-arc"
#endif

namespace corvane::macos {

namespace {

std::optional<std::string> bundleText(NSString *key) {
    NSObject *value = NSBundle.mainBundle.infoDictionary[key];
    if (![value isKindOfClass:NSString.class]) {
        return std::nullopt;
    }
    return utf8(static_cast<NSString *>(value));
}

} // namespace

void MacApplication::terminate() {
    [NSApp performSelector:@selector(terminate:)
                withObject:nil
                afterDelay:0
                   inModes:@[ NSRunLoopCommonModes ]];
}

void MacApplication::activateIgnoringOtherApps() { [NSApp activateIgnoringOtherApps:YES]; }

std::optional<std::string> MacApplication::shortVersion() const {
    return bundleText(@"CFBundleShortVersionString");
}

std::optional<std::string> MacApplication::buildVersion() const {
    return bundleText(@"CFBundleVersion");
}

std::optional<std::filesystem::path> MacApplication::iconFile() const {
    NSURL *location = [NSBundle.mainBundle URLForResource:@"AppIcon" withExtension:@"icns"];
    return location == nil
               ? std::nullopt
               : std::optional<std::filesystem::path>(location.fileSystemRepresentation);
}

std::filesystem::path MacApplication::homeDirectory() const {
    return NSFileManager.defaultManager.homeDirectoryForCurrentUser.fileSystemRepresentation;
}

} // namespace corvane::macos
