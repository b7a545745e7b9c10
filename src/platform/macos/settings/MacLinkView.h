#pragma once

#import <AppKit/AppKit.h>

#include <functional>

NS_ASSUME_NONNULL_BEGIN

/// An area that opens something when it is clicked or, with the keyboard, pressed.
@interface MacLinkView : NSView

- (instancetype)initWithAction:(std::function<void()>)action NS_DESIGNATED_INITIALIZER;
- (instancetype)initWithFrame:(NSRect)frame NS_UNAVAILABLE;
- (nullable instancetype)initWithCoder:(NSCoder *)coder NS_UNAVAILABLE;

/// Opens nothing from now on.
- (void)disconnect;

@end

NS_ASSUME_NONNULL_END
