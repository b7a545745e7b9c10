#pragma once

#import <AppKit/AppKit.h>

#include <functional>

NS_ASSUME_NONNULL_BEGIN

/// Reports when a menu opens and closes. Main thread.
@interface MacMenuObserver : NSObject <NSMenuDelegate>

/// Calls `closed` in a later iteration of the run loop after the menu has closed and has not been
/// opened again, when the command chosen in it has been sent.
- (instancetype)initWithOpened:(std::function<void()>)opened
                        closed:(std::function<void()>)closed NS_DESIGNATED_INITIALIZER;
- (instancetype)init NS_UNAVAILABLE;

@end

NS_ASSUME_NONNULL_END
