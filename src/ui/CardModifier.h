#pragma once

#include "presentation/View.h"

namespace corvane {

/// Groups `content` into a card: 16 points of padding, the full width with the content at its
/// leading edge, the faintest fill in a rounded rectangle.
View cardModifier(View content);

} // namespace corvane
