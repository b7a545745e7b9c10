#pragma once

#include "platform/drawing/SymbolImages.h"
#include "presentation/StatusIcon.h"
#include "support/Geometry.h"

#include <QColor>
#include <QImage>
#include <QList>

namespace corvane::drawing {

/// The button a status icon is laid out in, points.
inline constexpr Size statusButtonSize{22, 22};

/// The icon in the sizes that panels use, its dot painted in; empty when there is no such symbol.
QList<QImage> statusIconImages(const StatusIcon &icon, const QColor &colour, SymbolImages &symbols);

} // namespace corvane::drawing
