#pragma once

#include "presentation/Alert.h"

#include <QPixmap>

namespace corvane::qt {

/// The picture beside an alert's text: the application icon, with a warning mark on a warning that
/// only tells. `size` in points, sharp on a screen with `ratio` pixels to the point.
QPixmap alertImage(const Alert &alert, int size, qreal ratio);

} // namespace corvane::qt
