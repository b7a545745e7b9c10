#pragma once

#import <Foundation/Foundation.h>

#include <functional>

NS_ASSUME_NONNULL_BEGIN

/// Observes notifications of the workspace and of the login window for as long as it exists. Main
/// thread.
@interface MacSessionObserver : NSObject

/// Passes on the name of each notification.
- (instancetype)initWithReceiver:(std::function<void(NSNotificationName)>)receiver
    NS_DESIGNATED_INITIALIZER;
- (instancetype)init NS_UNAVAILABLE;

/// Of the workspace, which posts them in this process.
- (void)observeWorkspace:(NSNotificationName)name;

/// Of any process, at once although this program is rarely the active one.
- (void)observeEverybody:(NSNotificationName)name;

/// Nothing is heard any more.
- (void)end;

@end

NS_ASSUME_NONNULL_END
