#import "platform/macos/app/MacAppDelegate.h"

#include "platform/MainQueue.h"
#include "platform/Platform.h"
#import "platform/macos/support/Text.h"

#include <utility>
#include <vector>

namespace macos = corvane::macos;

namespace {

/// Empty for a sender that stands for nothing.
std::string representedObject(id sender) {
    NSObject *object = sender;
    if (![object isKindOfClass:NSMenuItem.class]) {
        return {};
    }
    NSObject *represented = static_cast<NSMenuItem *>(object).representedObject;
    return [represented isKindOfClass:NSString.class]
               ? macos::utf8(static_cast<NSString *>(represented))
               : std::string();
}

} // namespace

@implementation MacAppDelegate {
    std::unique_ptr<corvane::platform::Platform> _platform;
    std::unique_ptr<corvane::CorvaneApp> _application;
    std::vector<std::string> _earlyUrls;
}

+ (instancetype)current {
    NSObject *delegate = NSApp.delegate;
    return [delegate isKindOfClass:self] ? static_cast<MacAppDelegate *>(delegate) : nil;
}

- (instancetype)initWithPlatform:(std::unique_ptr<corvane::platform::Platform>)platform
                     application:(std::unique_ptr<corvane::CorvaneApp>)application {
    self = [super init];
    if (self != nil) {
        _platform = std::move(platform);
        _application = std::move(application);
    }
    return self;
}

- (void)applicationDidFinishLaunching:(NSNotification *)notification {
    _application->appDelegate().applicationDidFinishLaunching();
}

- (void)applicationWillTerminate:(NSNotification *)notification {
    _application->appDelegate().applicationWillTerminate();
    // The process exits without coming back to main: here runs end, saves finish and the last
    // answers go out.
    _application.reset();
    _platform.reset();
}

/// There is no state to restore after a new login; without this method AppKit logs a warning.
- (BOOL)applicationSupportsSecureRestorableState:(NSApplication *)application {
    return YES;
}

- (void)application:(NSApplication *)application openURLs:(NSArray<NSURL *> *)urls {
    for (NSURL *url in urls) {
        if (NSString *text = url.absoluteString) {
            [self take:macos::utf8(text)];
        }
    }
}

- (void)take:(const std::string &)url {
    if (_openUrl) {
        _openUrl(url);
    } else {
        _earlyUrls.push_back(url);
    }
}

- (void)setOpenUrl:(std::function<void(const std::string &)>)openUrl {
    _openUrl = std::move(openUrl);
    if (_openUrl) {
        for (const std::string &url : std::exchange(_earlyUrls, {})) {
            _openUrl(url);
        }
    }
}

- (BOOL)applicationShouldHandleReopen:(NSApplication *)sender hasVisibleWindows:(BOOL)isVisible {
    _application->appDelegate().applicationShouldHandleReopen();
    return NO;
}

/// The menu's items are enabled under an alert too: what may be done then is decided elsewhere.
- (BOOL)worksWhenModal {
    return YES;
}

- (void)startClicking:(id)sender {
    [self send:corvane::ActionID::startClicking from:sender];
}

- (void)stopClicking:(id)sender {
    [self send:corvane::ActionID::stopClicking from:sender];
}

- (void)setModeCursor:(id)sender {
    [self send:corvane::ActionID::setModeCursor from:sender];
}

- (void)setModeZone:(id)sender {
    [self send:corvane::ActionID::setModeZone from:sender];
}

- (void)selectZone:(id)sender {
    [self send:corvane::ActionID::selectZone from:sender];
}

- (void)loadProfile:(id)sender {
    [self send:corvane::ActionID::loadProfile from:sender];
}

- (void)saveAsProfile:(id)sender {
    [self send:corvane::ActionID::saveAsProfile from:sender];
}

- (void)showConfig:(id)sender {
    [self send:corvane::ActionID::showConfig from:sender];
}

- (void)openAccessibilitySettings:(id)sender {
    [self send:corvane::ActionID::openAccessibilitySettings from:sender];
}

- (void)send:(corvane::ActionID)action from:(id)sender {
    // The menu is still on its way off the screen: its window would take a click made now.
    _platform->mainQueue().post(
        [perform = self.perform,
         chosen = corvane::MenuCommand{.action = action,
                                       .representedObject = representedObject(sender)}] {
            if (perform) {
                perform(chosen);
            }
        });
}

@end
