#pragma once

#include "presentation/Drawing.h"
#include "support/Geometry.h"

namespace corvane {

/// The outline of the zone with its badge above the top left corner.
class ZoneOverlayView {
  public:
    /// The height of the strip above the zone that holds the badge, points.
    static constexpr double badgeOverhang = 24;

    /// What a view of that size shows; origin bottom left.
    static Drawing drawing(Size bounds);
};

} // namespace corvane
