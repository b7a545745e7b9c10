#pragma once

#import <AppKit/AppKit.h>

#include <functional>

NS_ASSUME_NONNULL_BEGIN

/// Receives a control's action. The control holds it weakly.
@interface MacActionTarget : NSObject

- (instancetype)initWithAction:(std::function<void()>)action NS_DESIGNATED_INITIALIZER;
- (instancetype)init NS_UNAVAILABLE;

/// Makes it the receiver of the control's action.
- (void)attachTo:(NSControl *)control;

- (void)perform:(nullable id)sender;

@end

NS_ASSUME_NONNULL_END
