#pragma once

#include "presentation/Colour.h"

#include <QColor>

namespace corvane::platform {

/// The shade of a named colour on this desktop.
QColor qtColour(const Colour &colour);

} // namespace corvane::platform
