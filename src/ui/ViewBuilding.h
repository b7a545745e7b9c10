#pragma once

#include "presentation/View.h"

#include <string>
#include <vector>

namespace corvane {

// Short names for the views that the settings tabs are made of.

/// The space between the neighbours of a row that sets none of its own, points.
inline constexpr double standardSpacing = 8;

View row(std::vector<View> children, double spacing = standardSpacing,
         Alignment alignment = Alignment::center);
View column(std::vector<View> children, double spacing, Alignment alignment = Alignment::leading);
View heading(std::string text);
View styledText(std::string text, Font font, ShapeStyle style);
/// The text on one line, cut where it does not fit.
View singleLine(View text);
View symbolImage(std::string name, Font font, ShapeStyle style);

} // namespace corvane
