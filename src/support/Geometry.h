#pragma once

#include <algorithm>
#include <cmath>

namespace corvane {

/// A position. The coordinate space is the one its holder names.
struct Point {
    double x = 0;
    double y = 0;

    bool operator==(const Point &) const = default;
};

/// A width and a height.
struct Size {
    double width = 0;
    double height = 0;

    bool operator==(const Size &) const = default;
};

/// An axis-aligned rectangle: the corner with the smallest coordinates and a size.
///
/// Two spaces are in use. Global display space has its origin at the top left, y growing downwards:
/// clicks, zones and other programs' windows are in it. Screen space has its origin at the bottom
/// left of the primary screen, y growing upwards: screens and our own windows are in it.
struct Rectangle {
    double x = 0;
    double y = 0;
    double width = 0;
    double height = 0;

    bool operator==(const Rectangle &) const = default;

    double midX() const { return x + width / 2; }
    double midY() const { return y + height / 2; }
    double maxX() const { return x + width; }
    double maxY() const { return y + height; }
    Point center() const { return {midX(), midY()}; }
    Size size() const { return {width, height}; }

    /// Whether the point lies inside: the minimum edges do, the maximum edges do not. A negative
    /// width or height means the same area as its positive mirror image.
    bool contains(Point point) const {
        const auto within = [](double value, double start, double length) {
            return value >= std::min(start, start + length) &&
                   value < std::max(start, start + length);
        };
        return within(point.x, x, width) && within(point.y, y, height);
    }

    /// The same area written with a positive width and height.
    Rectangle standardised() const {
        return {std::min(x, maxX()), std::min(y, maxY()), std::abs(width), std::abs(height)};
    }

    /// The rectangle made smaller by `distance` on every side.
    Rectangle insetBy(double distance) const {
        return {x + distance, y + distance, width - 2 * distance, height - 2 * distance};
    }

    /// The smallest rectangle that holds both points as corners, whatever their order.
    static Rectangle spanning(Point one, Point other) {
        return {std::min(one.x, other.x), std::min(one.y, other.y),
                std::max(one.x, other.x) - std::min(one.x, other.x),
                std::max(one.y, other.y) - std::min(one.y, other.y)};
    }
};

/// Converts between global display space and screen space, either way.
inline Point flipped(Point point, double primaryHeight) {
    return {point.x, primaryHeight - point.y};
}

/// Converts between global display space and screen space, either way.
inline Rectangle flipped(const Rectangle &rectangle, double primaryHeight) {
    return {rectangle.x, primaryHeight - rectangle.y - rectangle.height, rectangle.width,
            rectangle.height};
}

} // namespace corvane
