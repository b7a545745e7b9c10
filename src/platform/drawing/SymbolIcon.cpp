#include "platform/drawing/SymbolIcon.h"

#include "platform/drawing/SymbolImages.h"

#include <QPainter>

#include <algorithm>
#include <utility>

namespace corvane::drawing {

SymbolIcon::SymbolIcon(SymbolImages &images, std::string name, const Colours &colours)
    : images_(images),
      name_(std::move(name)),
      colours_(colours) {}

void SymbolIcon::paint(QPainter *painter, const QRect &rectangle, QIcon::Mode mode,
                       QIcon::State state) {
    const qreal ratio = painter->device()->devicePixelRatio();
    painter->drawPixmap(rectangle, pixmap(rectangle.size() * ratio, mode, state));
}

QPixmap SymbolIcon::pixmap(const QSize &size, QIcon::Mode mode, QIcon::State /*state*/) {
    const int side = std::min(size.width(), size.height());
    return QPixmap::fromImage(images_.image(name_, colour(mode), side));
}

QIconEngine *SymbolIcon::clone() const {
    return new SymbolIcon(images_, name_, colours_); // NOLINT: as the toolkit wants it
}

const QColor &SymbolIcon::colour(QIcon::Mode mode) const {
    switch (mode) {
    case QIcon::Disabled:
        return colours_.disabled;
    case QIcon::Active:
    case QIcon::Selected:
        return colours_.active;
    case QIcon::Normal:
        break;
    }
    return colours_.normal;
}

} // namespace corvane::drawing
