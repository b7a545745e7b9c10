#pragma once

#include "support/Geometry.h"

#include <string>

namespace corvane {

/// A rectangle as it is stored.
struct CodableRect {
    double x = 0;
    double y = 0;
    double width = 0;
    double height = 0;

    static CodableRect of(const Rectangle &rectangle) {
        return {rectangle.x, rectangle.y, rectangle.width, rectangle.height};
    }

    bool operator==(const CodableRect &) const = default;

    Rectangle rectangle() const { return {x, y, width, height}; }

    /// "300×200": width and height truncated to whole numbers, or in exponent form where 64 bits do
    /// not hold them. A size that is not finite is a programming error and stops the program.
    std::string sizeLabel() const;
};

} // namespace corvane
