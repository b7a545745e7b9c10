#pragma once

#include "presentation/ViewStyle.h"

#import <AppKit/AppKit.h>

#include <optional>

NS_ASSUME_NONNULL_BEGIN

/// The area of one view, with its background; its coordinates begin at the top left.
@interface MacBoxView : NSView

- (void)setBackground:(const std::optional<corvane::Background> &)background;

@end

NS_ASSUME_NONNULL_END
