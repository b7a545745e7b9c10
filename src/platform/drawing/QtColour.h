#pragma once

#include "presentation/Colour.h"

#include <QColor>

namespace corvane::x11 {

/// The shade of a named colour on this desktop.
QColor qtColour(const Colour &colour);

} // namespace corvane::x11
