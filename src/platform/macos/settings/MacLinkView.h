#pragma once

#import <AppKit/AppKit.h>

#include <functional>

NS_ASSUME_NONNULL_BEGIN

/// An area that opens something when it is clicked or, with the keyboard, pressed.
@interface MacLinkView : NSView

/// Opens it; without one nothing is opened.
@property(nonatomic) std::function<void()> action;

@end

NS_ASSUME_NONNULL_END
