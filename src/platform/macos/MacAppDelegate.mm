#import "platform/macos/MacAppDelegate.h"

#import "platform/macos/MacUserSession.h"
#import "platform/macos/Text.h"

#include <utility>

#if !__has_feature(objc_arc)
#error "Compile this file with -fobjc-arc"
#endif

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
    std::unique_ptr<corvane::CorvaneApp> _application;
    std::unique_ptr<macos::MacUserSession> _userSession;
}

- (instancetype)initWithApplication:(std::unique_ptr<corvane::CorvaneApp>)application {
    self = [super init];
    if (self != nil) {
        _application = std::move(application);
    }
    return self;
}

- (void)applicationDidFinishLaunching:(NSNotification *)notification {
    corvane::AppDelegate &delegate = _application->appDelegate();
    delegate.applicationDidFinishLaunching();
    _userSession = std::make_unique<macos::MacUserSession>(
        [&delegate](bool isAway) { isAway ? delegate.userLeft() : delegate.userReturned(); });
}

- (void)applicationWillTerminate:(NSNotification *)notification {
    _application->appDelegate().applicationWillTerminate();
    _userSession.reset();
    // The process exits without coming back to main: runs end and saves finish here.
    _application.reset();
}

- (BOOL)applicationShouldHandleReopen:(NSApplication *)sender hasVisibleWindows:(BOOL)isVisible {
    _application->appDelegate().applicationShouldHandleReopen();
    return NO;
}

- (void)startClicking:(id)sender {
    [self send:_cmd from:sender];
}

- (void)stopClicking:(id)sender {
    [self send:_cmd from:sender];
}

- (void)setModeCursor:(id)sender {
    [self send:_cmd from:sender];
}

- (void)setModeZone:(id)sender {
    [self send:_cmd from:sender];
}

- (void)selectZone:(id)sender {
    [self send:_cmd from:sender];
}

- (void)loadProfile:(id)sender {
    [self send:_cmd from:sender];
}

- (void)saveAsProfile:(id)sender {
    [self send:_cmd from:sender];
}

- (void)showConfig:(id)sender {
    [self send:_cmd from:sender];
}

- (void)openAccessibilitySettings:(id)sender {
    [self send:_cmd from:sender];
}

- (void)send:(SEL)command from:(id)sender {
    if (self.perform) {
        self.perform({.action = macos::utf8(NSStringFromSelector(command)),
                      .representedObject = representedObject(sender)});
    }
}

@end
