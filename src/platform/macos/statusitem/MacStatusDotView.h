#pragma once

#include "presentation/StatusIcon.h"

#import <AppKit/AppKit.h>

NS_ASSUME_NONNULL_BEGIN

/// The round mark over the status item's button.
@interface MacStatusDotView : NSView

- (instancetype)initWithDot:(const corvane::StatusDot &)dot NS_DESIGNATED_INITIALIZER;
- (instancetype)initWithFrame:(NSRect)frame NS_UNAVAILABLE;
- (nullable instancetype)initWithCoder:(NSCoder *)coder NS_UNAVAILABLE;

@end

NS_ASSUME_NONNULL_END
