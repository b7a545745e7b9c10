#pragma once

#include "presentation/Animation.h"
#include "support/Geometry.h"

namespace corvane {

/// The ring that grows from a click and fades out.
class RippleView {
  public:
    /// The side of the square view, points.
    static constexpr double side = 50;

    /// For a view with those bounds; origin bottom left.
    static Animation animation(const Rectangle &bounds);
};

} // namespace corvane
