#include "platform/linux/ContinuousCorners.h"

#include <QTransform>

#include <algorithm>

namespace corvane::x11 {

namespace {

/// How far along the sides a corner reaches, in radii.
constexpr qreal reach = 1.528665;

/// The corner that leads from the top side to the right side, for the radius 1: three curves, each
/// by two control points and an end. The corner of the rectangle is the origin.
constexpr QPointF corner[3][3] = {
    {{-1.08849296, 0}, {-0.86840694, 0}, {-0.63149379, 0.07491139}},
    {{-0.37282383, 0.16905956}, {-0.16905956, 0.37282383}, {-0.07491139, 0.63149379}},
    {{0, 0.86840694}, {0, 1.08849296}, {0, reach}}};

} // namespace

QPainterPath continuousRoundedRectangle(const QRectF &bounds, qreal radius) {
    QPainterPath path;
    const qreal room = std::min(bounds.width(), bounds.height()) / 2;
    if (room < radius * reach) {
        path.addRoundedRect(bounds, std::min(radius, room), std::min(radius, room));
        return path;
    }
    const QPointF corners[] = {bounds.topRight(), bounds.bottomRight(), bounds.bottomLeft(),
                               bounds.topLeft()};
    path.moveTo(bounds.left() + reach * radius, bounds.top());
    for (int turn = 0; turn < 4; ++turn) {
        const QTransform placed = QTransform::fromTranslate(corners[turn].x(), corners[turn].y())
                                      .rotate(90.0 * turn)
                                      .scale(radius, radius);
        path.lineTo(placed.map(QPointF(-reach, 0)));
        for (const auto &curve : corner) {
            path.cubicTo(placed.map(curve[0]), placed.map(curve[1]), placed.map(curve[2]));
        }
    }
    path.closeSubpath();
    return path;
}

} // namespace corvane::x11
