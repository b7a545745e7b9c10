#import "platform/macos/app/Application.h"

#import "platform/macos/support/Text.h"

#import <AppKit/AppKit.h>

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

void Application::terminate() {
    [NSApp performSelector:@selector(terminate:)
                withObject:nil
                afterDelay:0
                   inModes:@[ NSRunLoopCommonModes ]];
}

void Application::activateIgnoringOtherApps() {
    [NSApp unhideWithoutActivation];
    [NSApp activateIgnoringOtherApps:YES];
}

std::optional<std::string> Application::shortVersion() const {
    return bundleText(@"CFBundleShortVersionString");
}

std::optional<std::string> Application::buildVersion() const {
    return bundleText(@"CFBundleVersion");
}

std::optional<std::filesystem::path> Application::iconFile() const {
    NSURL *location = [NSBundle.mainBundle URLForResource:@"AppIcon" withExtension:@"icns"];
    return location == nil
               ? std::nullopt
               : std::optional<std::filesystem::path>(location.fileSystemRepresentation);
}

std::filesystem::path Application::homeDirectory() const {
    return NSFileManager.defaultManager.homeDirectoryForCurrentUser.fileSystemRepresentation;
}

} // namespace corvane::macos
