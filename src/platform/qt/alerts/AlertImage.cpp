#include "platform/qt/alerts/AlertImage.h"

#include <QPainter>
#include <QSvgRenderer>

namespace corvane::qt {

namespace {

void paint(QPainter &painter, const QString &drawing, const QRectF &frame) {
    QSvgRenderer renderer(drawing);
    renderer.render(&painter, frame);
}

} // namespace

QPixmap alertImage(const Alert &alert, int size, qreal ratio) {
    QPixmap pixmap(QSize(size, size) * ratio);
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    paint(painter, QStringLiteral(":/AppIcon.svg"), QRectF(0, 0, size, size));
    if (alert.style == AlertStyle::warning && !alert.field) {
        const auto badge = size * 0.46;
        paint(painter, QStringLiteral(":/Warning.svg"),
              QRectF(size - badge, size - badge, badge, badge));
    }
    return pixmap;
}

} // namespace corvane::qt
