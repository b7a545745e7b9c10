#pragma once

#include "presentation/ViewStyle.h"

#include <QColor>
#include <QFont>
#include <QPalette>

#include <optional>

namespace corvane::x11 {

/// The colour of a text or a symbol on a window of that palette; the palette's own text colour for
/// no style.
QColor foregroundColour(const std::optional<ShapeStyle> &style, const QPalette &palette);

/// The colour of a shape behind others on a window of that palette.
QColor fillColour(const ShapeStyle &style, const QPalette &palette);

/// A colour of the window's text that is so strong, from 0 to 1.
QColor faded(const QPalette &palette, double strength);

bool isDark(const QPalette &palette);

/// A text style as it relates to the desktop's own font.
QFont viewFont(const Font &font);

} // namespace corvane::x11
