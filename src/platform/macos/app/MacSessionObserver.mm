#import "platform/macos/app/MacSessionObserver.h"

#import <AppKit/AppKit.h>

#include <utility>

@implementation MacSessionObserver {
    std::function<void(NSNotificationName)> _receiver;
}

- (instancetype)initWithReceiver:(std::function<void(NSNotificationName)>)receiver {
    self = [super init];
    if (self != nil) {
        _receiver = std::move(receiver);
    }
    return self;
}

- (void)observeWorkspace:(NSNotificationName)name {
    [NSWorkspace.sharedWorkspace.notificationCenter addObserver:self
                                                       selector:@selector(received:)
                                                           name:name
                                                         object:nil];
}

- (void)observeEverybody:(NSNotificationName)name {
    // The application object suspends the delivery while another program is the active one.
    [NSDistributedNotificationCenter.defaultCenter
               addObserver:self
                  selector:@selector(received:)
                      name:name
                    object:nil
        suspensionBehavior:NSNotificationSuspensionBehaviorDeliverImmediately];
}

- (void)end {
    [NSWorkspace.sharedWorkspace.notificationCenter removeObserver:self];
    [NSDistributedNotificationCenter.defaultCenter removeObserver:self];
}

- (void)received:(NSNotification *)notification {
    @autoreleasepool {
        _receiver(notification.name);
    }
}

@end
