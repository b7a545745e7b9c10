#pragma once

#include "presentation/Colour.h"
#include "presentation/Symbol.h"
#include "support/Geometry.h"

#include <optional>
#include <string>

namespace corvane {

/// A filled round mark over the status item's button.
struct StatusDot {
    /// In the button's bounds: origin top left, y growing downwards, points.
    Rectangle frame;
    double cornerRadius = 0;
    Colour colour;

    bool operator==(const StatusDot &) const = default;
};

/// What the status item's button shows.
struct StatusIcon {
    /// Drawn as a template: the bar gives the colour.
    Symbol image;
    std::string title;
    std::optional<StatusDot> dot{};

    bool operator==(const StatusIcon &) const = default;
};

} // namespace corvane
