#pragma once

#include <QPainterPath>
#include <QRectF>

namespace corvane::qt {

/// A rectangle whose corners bend gradually: the curvature starts from nothing at the sides and is
/// strongest in the middle of the corner. Where there is no room for that it becomes a capsule.
QPainterPath continuousRoundedRectangle(const QRectF &bounds, qreal radius);

} // namespace corvane::qt
