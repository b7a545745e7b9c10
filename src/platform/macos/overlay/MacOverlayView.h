#pragma once

#include "platform/OverlayWindows.h"

#import <AppKit/AppKit.h>

#include <functional>

NS_ASSUME_NONNULL_BEGIN

/// The content of an overlay window: shows a drawing, plays animations over it and reports what the
/// user does.
@interface MacOverlayView : NSView

- (instancetype)initWithEvents:(corvane::platform::OverlayEvents)events
                        cursor:(corvane::Cursor)cursor NS_DESIGNATED_INITIALIZER;
- (instancetype)initWithFrame:(NSRect)frame NS_UNAVAILABLE;
- (nullable instancetype)initWithCoder:(NSCoder *)coder NS_UNAVAILABLE;

- (void)setDrawing:(const corvane::Drawing &)drawing;

/// Calls `completion` on the main thread when the animation has ended or was replaced.
- (void)play:(const corvane::Animation &)animation completion:(std::function<void()>)completion;

/// Reports a key as if it had been pressed in the view.
- (void)reportKey:(corvane::platform::Key)key;

/// Shows nothing, as when it was made.
- (void)reset;

/// Reports nothing from now on.
- (void)disconnect;

@end

NS_ASSUME_NONNULL_END
