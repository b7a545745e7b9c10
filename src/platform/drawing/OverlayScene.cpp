#include "platform/drawing/OverlayScene.h"

#include <algorithm>
#include <cmath>

namespace corvane::drawing {

namespace {

/// The nearest pixel edge, within what an integer can count.
int pixelEdge(double position) {
    constexpr double farthest = 1e9;
    const double within = position > -farthest ? std::min(position, farthest) : -farthest;
    return static_cast<int>(std::lround(within));
}

} // namespace

QRect pixelsOf(const Rectangle &rectangle) {
    const int left = pixelEdge(rectangle.x);
    const int top = pixelEdge(rectangle.y);
    return {left, top, std::max(1, pixelEdge(rectangle.maxX()) - left),
            std::max(1, pixelEdge(rectangle.maxY()) - top)};
}

Rectangle rectangleOf(const QRect &pixels) {
    return {double(pixels.x()), double(pixels.y()), double(pixels.width()),
            double(pixels.height())};
}

QRect shownPart(const QRect &frame, const QRect &desktop) {
    const QRect whole(QPoint(), frame.size());
    if (whole.width() <= desktop.width() && whole.height() <= desktop.height()) {
        return whole;
    }
    const QRect part = whole.intersected(desktop.translated(-frame.topLeft()));
    return part.isEmpty() ? QRect(0, 0, 1, 1) : part;
}

} // namespace corvane::drawing
