#pragma once

#include "harness/Settings.h"
#include "harness/probes/Screenshot.h"

#include <optional>

namespace corvane::desktop {

// What the program draws over the screen, as it looks on a light window.

bool isGreen(Pixel pixel);
bool isFaintlyGreen(Pixel pixel);
bool isBlue(Pixel pixel);
bool isWhite(Pixel pixel);
bool isBlack(Pixel pixel);

/// Whether the outline lies exactly on the zone: its outermost pixels are green along every side,
/// and none beside it is.
bool isOutlined(const Screenshot &seen, const Area &zone);

/// Whether the badge stands above the zone's left corner.
bool hasBadge(const Screenshot &seen, const Area &zone);

/// The smallest area that holds all blue pixels of a ring around that position; nothing without a
/// ring.
std::optional<Area> ringAround(const Screenshot &seen, Position center);

} // namespace corvane::desktop
