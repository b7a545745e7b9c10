#pragma once

#import <AppKit/AppKit.h>

#include <functional>

NS_ASSUME_NONNULL_BEGIN

/// Knows whether a menu is open.
@interface MacMenuObserver : NSObject <NSMenuDelegate>

@property(nonatomic, readonly) BOOL isOpen;

/// Calls `closed` in a later turn after the menu has closed, when the command chosen in it has been
/// sent.
- (instancetype)initWithClosed:(std::function<void()>)closed NS_DESIGNATED_INITIALIZER;
- (instancetype)init NS_UNAVAILABLE;

@end

NS_ASSUME_NONNULL_END
