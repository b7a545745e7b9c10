#pragma once

#include "presentation/Colour.h"
#include "presentation/Symbol.h"

#include <optional>
#include <variant>

namespace corvane {

/// Space around a view, points.
struct Insets {
    double top = 0;
    double leading = 0;
    double bottom = 0;
    double trailing = 0;

    bool operator==(const Insets &) const = default;

    static Insets all(double length) { return {length, length, length, length}; }
    static Insets symmetric(double horizontal, double vertical) {
        return {vertical, horizontal, vertical, horizontal};
    }
};

/// Across a stack, or within the width given to a view. Leading and trailing follow the reading
/// direction of the user's language.
enum class Alignment { leading, center, trailing, top };

/// A text style of the system; `system` is its ordinary font at a size of its own.
enum class FontRole { body, callout, caption2, headline, title, system };

struct Font {
    FontRole role = FontRole::body;
    /// Instead of the role's own weight.
    std::optional<FontWeight> weight{};
    bool isMonospaced = false;
    /// Points; for `system` only.
    double size = 0;

    bool operator==(const Font &) const = default;
};

/// Levels of emphasis: the system's text colours, from the strongest to the faintest.
enum class HierarchicalStyle { primary, secondary, tertiary, quaternary };

/// What a text, a symbol or a background is painted with.
using ShapeStyle = std::variant<HierarchicalStyle, Colour>;

enum class BackgroundShape {
    /// Continuous corners: the curvature grows and ends gradually.
    roundedRectangle,
    /// Half circles at both ends.
    capsule
};

/// A filled shape behind a view, as large as the view with its padding.
struct Background {
    ShapeStyle fill = HierarchicalStyle::quaternary;
    BackgroundShape shape = BackgroundShape::roundedRectangle;
    /// Points; for the rounded rectangle only.
    double cornerRadius = 0;

    bool operator==(const Background &) const = default;
};

} // namespace corvane
