#pragma once

#include "presentation/ViewStyle.h"

#import <AppKit/AppKit.h>

#include <optional>

#if !__has_feature(objc_arc)
#error "Compile this file with -fobjc-arc"
#endif

NS_ASSUME_NONNULL_BEGIN

/// The area of one view, with its background.
@interface MacBoxView : NSView

- (void)setBackground:(const std::optional<corvane::Background> &)background;

@end

NS_ASSUME_NONNULL_END
