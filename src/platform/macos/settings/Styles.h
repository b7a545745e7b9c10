#pragma once

#include "presentation/ViewStyle.h"

#import <AppKit/AppKit.h>

#include <optional>

NS_ASSUME_NONNULL_BEGIN

namespace corvane::macos {

NSFont *systemFont(const Font &font);

/// Makes a symbol as large and as heavy as text of that font.
NSImageSymbolConfiguration *symbolConfiguration(const Font &font);

/// For text and symbols; `ordinary` where the view names no style of its own.
NSColor *foregroundColour(const std::optional<ShapeStyle> &style, NSColor *ordinary);

/// For the shape behind a view.
NSColor *backgroundColour(const ShapeStyle &style);

} // namespace corvane::macos

NS_ASSUME_NONNULL_END
