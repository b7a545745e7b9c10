#import "platform/macos/windows/Applications.h"

#import "platform/macos/support/Text.h"

#import <AppKit/AppKit.h>

namespace corvane::macos {

namespace {

platform::RunningApplication portable(NSRunningApplication *application) {
    platform::RunningApplication result{.processIdentifier = application.processIdentifier};
    if (NSString *identifier = application.bundleIdentifier) {
        result.bundleIdentifier = utf8(identifier);
    }
    return result;
}

} // namespace

std::optional<platform::RunningApplication> Applications::running(std::int32_t processIdentifier) {
    NSRunningApplication *application =
        [NSRunningApplication runningApplicationWithProcessIdentifier:processIdentifier];
    return application == nil ? std::nullopt : std::optional(portable(application));
}

std::vector<platform::RunningApplication>
Applications::running(const std::string &bundleIdentifier) {
    std::vector<platform::RunningApplication> result;
    for (NSRunningApplication *application in [NSRunningApplication
             runningApplicationsWithBundleIdentifier:systemText(bundleIdentifier)]) {
        result.push_back(portable(application));
    }
    return result;
}

std::optional<std::string> Applications::displayName(const std::string &bundleIdentifier) {
    NSURL *location = [NSWorkspace.sharedWorkspace
        URLForApplicationWithBundleIdentifier:systemText(bundleIdentifier)];
    NSString *name = location.URLByDeletingPathExtension.lastPathComponent;
    return name == nil ? std::nullopt : std::optional(utf8(name));
}

std::string Applications::ownBundleIdentifier() const {
    NSString *identifier = NSBundle.mainBundle.bundleIdentifier;
    return identifier == nil ? std::string() : utf8(identifier);
}

} // namespace corvane::macos
