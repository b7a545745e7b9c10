#include "app/CorvaneApp.h"
#import "platform/macos/EditingKeys.h"
#import "platform/macos/MacAppDelegate.h"
#import "platform/macos/MacPlatform.h"
#import "platform/macos/TerminationSignals.h"

#import <AppKit/AppKit.h>

#if !__has_feature(objc_arc)
#error "Compile this file with -fobjc-arc"
#endif

int main() {
    @autoreleasepool {
        NSApplication *application = NSApplication.sharedApplication;
        corvane::macos::MacPlatform platform;
        // Held to the end: the application object holds its delegate weakly.
        NS_VALID_UNTIL_END_OF_SCOPE MacAppDelegate *delegate = [[MacAppDelegate alloc]
            initWithApplication:std::make_unique<corvane::CorvaneApp>(platform)];
        const corvane::macos::TerminationSignals signals;
        application.delegate = delegate;
        application.mainMenu = corvane::macos::makeEditingKeys();
        // No Dock icon and no menu bar of its own.
        application.activationPolicy = NSApplicationActivationPolicyAccessory;
        [application run];
    }
    return 0;
}
