#pragma once

#include "support/Geometry.h"

#include <CoreGraphics/CoreGraphics.h>

namespace corvane::macos {

inline CGPoint systemPoint(Point point) { return CGPointMake(point.x, point.y); }

inline CGRect systemRectangle(const Rectangle &rectangle) {
    return CGRectMake(rectangle.x, rectangle.y, rectangle.width, rectangle.height);
}

inline Point portablePoint(CGPoint point) { return {point.x, point.y}; }

inline Rectangle portableRectangle(CGRect rectangle) {
    return {rectangle.origin.x, rectangle.origin.y, rectangle.size.width, rectangle.size.height};
}

} // namespace corvane::macos
