#pragma once

#include "presentation/Colour.h"
#include "presentation/Symbol.h"
#include "support/Geometry.h"

#include <optional>
#include <variant>
#include <vector>

namespace corvane {

/// An outline in the coordinates of the view that shows it: origin bottom left, y growing upwards.
struct Path {
    enum class Kind { rectangle, roundedRectangle, ellipse };

    Kind kind = Kind::rectangle;
    Rectangle bounds;
    /// Both radii of a rounded rectangle's corners, points.
    double cornerRadius = 0;

    bool operator==(const Path &) const = default;
};

/// A path, filled and then stroked.
struct Shape {
    Path path;
    std::optional<Colour> fill{};
    std::optional<Colour> stroke{};
    /// Points; the line lies half on either side of the path.
    double lineWidth = 1;
    /// Lengths drawn and left out in turn, points; empty for a solid line.
    std::vector<double> dashPattern{};

    bool operator==(const Shape &) const = default;
};

/// A symbol drawn in one colour into a frame.
struct SymbolDrawing {
    Symbol symbol;
    Colour colour;
    Rectangle frame;

    bool operator==(const SymbolDrawing &) const = default;
};

/// What a view shows, back to front.
using Drawing = std::vector<std::variant<Shape, SymbolDrawing>>;

} // namespace corvane
