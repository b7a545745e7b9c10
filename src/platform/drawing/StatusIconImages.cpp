#include "platform/drawing/StatusIconImages.h"

#include "platform/drawing/QtColour.h"

#include <QPainter>

#include <array>

namespace corvane::drawing {

namespace {

/// Panels take up to 64 pixels and scale what lies between.
constexpr std::array sizes{16, 22, 24, 32, 44, 48, 64};

/// The dot lies in a gap of its own so that it never runs into the symbol.
void paintDot(QPainter &painter, const StatusDot &dot) {
    constexpr auto gap = 1.25;
    const QRectF frame(dot.frame.x, dot.frame.y, dot.frame.width, dot.frame.height);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::black);
    painter.setCompositionMode(QPainter::CompositionMode_DestinationOut);
    painter.drawRoundedRect(frame.adjusted(-gap, -gap, gap, gap), dot.cornerRadius + gap,
                            dot.cornerRadius + gap);
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    painter.setBrush(qtColour(dot.colour));
    painter.drawRoundedRect(frame, dot.cornerRadius, dot.cornerRadius);
}

QImage statusIconImage(const StatusIcon &icon, const QColor &colour, int size,
                       SymbolImages &symbols) {
    auto image = symbols.image(icon.image.name, colour, size, icon.image.weight);
    if (icon.dot && !image.isNull()) {
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.scale(size / statusButtonSize.width, size / statusButtonSize.height);
        paintDot(painter, *icon.dot);
    }
    return image;
}

} // namespace

QList<QImage> statusIconImages(const StatusIcon &icon, const QColor &colour,
                               SymbolImages &symbols) {
    QList<QImage> images;
    for (const auto size : sizes) {
        const auto image = statusIconImage(icon, colour, size, symbols);
        if (!image.isNull()) {
            images << image;
        }
    }
    return images;
}

} // namespace corvane::drawing
