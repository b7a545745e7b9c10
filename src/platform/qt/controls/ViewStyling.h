#pragma once

#include "presentation/ViewStyle.h"

#include <QColor>
#include <QFont>
#include <QPalette>

#include <optional>

namespace corvane::qt {

/// The least height of a control in a row, and the space beside the text in a field; points.
inline constexpr int controlHeight = 26;
inline constexpr int fieldMargin = 3;

/// The colour of a text on a window of that palette, dark or light enough to be read; the palette's
/// own text colour for no style.
QColor textColour(const std::optional<ShapeStyle> &style, const QPalette &palette);

/// The colour of a symbol on a window of that palette; the palette's own text colour for no style.
QColor symbolColour(const std::optional<ShapeStyle> &style, const QPalette &palette);

/// The colour of a shape behind others on a window of that palette.
QColor fillColour(const ShapeStyle &style, const QPalette &palette);

/// The accent colour, and a readable colour for text on it.
QColor accentColour();
QColor accentTextColour();

/// The window's text colour with that opacity, 0 to 1.
QColor faded(const QPalette &palette, double strength);

bool isDark(const QPalette &palette);

/// For check boxes and radio buttons. Qt outlines them in a darker shade of the window, which is
/// invisible on a dark one: there the palette has a light window.
QPalette indicatorPalette();

/// Draws the placeholders of empty fields in a paler shade of the fields' own text; desktop themes
/// with dark fields tend to leave them black. After the application is made.
void usePlaceholderColourOfFields();

/// A text style as it relates to the desktop's own font.
QFont viewFont(const Font &font);

} // namespace corvane::qt
