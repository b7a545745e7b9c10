#pragma once

#include "presentation/Colour.h"

#include <QColor>

namespace corvane::drawing {

/// The shade of a named colour on this desktop.
QColor qtColour(const Colour &colour);

} // namespace corvane::drawing
