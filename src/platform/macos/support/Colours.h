#pragma once

#include "presentation/Colour.h"

#import <AppKit/AppKit.h>

NS_ASSUME_NONNULL_BEGIN

namespace corvane::macos {

/// The system's shade; it follows the appearance of the view that draws with it.
NSColor *systemColour(const Colour &colour);

} // namespace corvane::macos

NS_ASSUME_NONNULL_END
