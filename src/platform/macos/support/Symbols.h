#pragma once

#include "presentation/Symbol.h"

#import <AppKit/AppKit.h>

NS_ASSUME_NONNULL_BEGIN

namespace corvane::macos {

NSFontWeight systemWeight(FontWeight weight);

/// The symbol as an image; nil when the system has none of that name.
NSImage *_Nullable symbolImage(const Symbol &symbol);

/// A copy of the image in one colour.
NSImage *tintedCopy(NSImage *image, NSColor *colour);

} // namespace corvane::macos

NS_ASSUME_NONNULL_END
