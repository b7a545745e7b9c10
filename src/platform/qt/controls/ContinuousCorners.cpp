#include "platform/qt/controls/ContinuousCorners.h"

#include <QTransform>

#include <algorithm>
#include <array>

namespace corvane::qt {

namespace {

/// How far along the sides a corner reaches, in radii.
constexpr qreal reach = 1.528665;

/// The corner that leads from the top side to the right side, for the radius 1: three curves, each
/// by two control points and an end. The corner of the rectangle is the origin.
constexpr std::array<std::array<QPointF, 3>, 3> corner{
    {{{{-1.08849296, 0}, {-0.86840694, 0}, {-0.63149379, 0.07491139}}},
     {{{-0.37282383, 0.16905956}, {-0.16905956, 0.37282383}, {-0.07491139, 0.63149379}}},
     {{{0, 0.86840694}, {0, 1.08849296}, {0, reach}}}}};

} // namespace

QPainterPath continuousRoundedRectangle(const QRectF &bounds, qreal radius) {
    QPainterPath path;
    const qreal room = std::min(bounds.width(), bounds.height()) / 2;
    if (room < radius * reach) {
        path.addRoundedRect(bounds, std::min(radius, room), std::min(radius, room));
        return path;
    }
    const std::array corners{bounds.topRight(), bounds.bottomRight(), bounds.bottomLeft(),
                             bounds.topLeft()};
    path.moveTo(bounds.left() + reach * radius, bounds.top());
    qreal turned = 0;
    for (const QPointF &place : corners) {
        const QTransform placed =
            QTransform::fromTranslate(place.x(), place.y()).rotate(turned).scale(radius, radius);
        turned += 90;
        path.lineTo(placed.map(QPointF(-reach, 0)));
        for (const auto &curve : corner) {
            path.cubicTo(placed.map(curve[0]), placed.map(curve[1]), placed.map(curve[2]));
        }
    }
    path.closeSubpath();
    return path;
}

} // namespace corvane::qt
