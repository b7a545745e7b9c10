#include "platform/linux/SymbolImages.h"

#include <QFile>
#include <QPainter>
#include <QSvgRenderer>

#include <array>
#include <cmath>

namespace corvane::x11 {

namespace {

/// The stroke width every drawing is made with.
const QByteArray regularStroke = "stroke-width=\"1.6\"";

QByteArray strokeOf(FontWeight weight) {
    switch (weight) {
    case FontWeight::regular:
        break;
    case FontWeight::medium:
        return "stroke-width=\"1.9\"";
    case FontWeight::semibold:
        return "stroke-width=\"2.2\"";
    case FontWeight::bold:
        return "stroke-width=\"2.5\"";
    }
    return regularStroke;
}

QImage drawn(const QByteArray &source, const QColor &colour, int pixels) {
    QSvgRenderer renderer(source);
    if (!renderer.isValid()) {
        return {};
    }
    QImage image(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    renderer.render(&painter);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(image.rect(), colour);
    return image;
}

} // namespace

QImage SymbolImages::image(const std::string &name, const QColor &colour, int pixels,
                           FontWeight weight) {
    if (pixels <= 0) {
        return {};
    }
    const auto key = QByteArray::fromStdString(name) + ' ' +
                     QByteArray::number(static_cast<int>(weight)) + ' ' +
                     QByteArray::number(colour.rgba()) + ' ' + QByteArray::number(pixels);
    const auto known = images_.constFind(key);
    if (known != images_.cend()) {
        return *known;
    }
    return *images_.insert(key, drawn(drawing(name, weight), colour, pixels));
}

QPixmap SymbolImages::pixmap(const std::string &name, const QColor &colour, int points, qreal ratio,
                             FontWeight weight) {
    const auto pixels = static_cast<int>(std::lround(points * ratio));
    auto pixmap = QPixmap::fromImage(image(name, colour, pixels, weight));
    pixmap.setDevicePixelRatio(ratio);
    return pixmap;
}

QIcon SymbolImages::icon(const std::string &name, const QPalette &palette, QPalette::ColorRole role,
                         QPalette::ColorRole activeRole) {
    constexpr std::array sizes{16, 20, 22, 24, 32, 40, 48, 64};
    QIcon icon;
    const auto add = [&](int size, const QColor &colour, QIcon::Mode mode) {
        const auto drawing = image(name, colour, size);
        if (!drawing.isNull()) {
            icon.addPixmap(QPixmap::fromImage(drawing), mode);
        }
    };
    for (const auto size : sizes) {
        add(size, palette.color(QPalette::Active, role), QIcon::Normal);
        add(size, palette.color(QPalette::Disabled, role), QIcon::Disabled);
        add(size, palette.color(QPalette::Active, activeRole), QIcon::Active);
        add(size, palette.color(QPalette::Active, activeRole), QIcon::Selected);
    }
    return icon;
}

QByteArray SymbolImages::drawing(const std::string &name, FontWeight weight) {
    QFile file(QStringLiteral(":/symbols/") + QString::fromStdString(name) +
               QStringLiteral(".svg"));
    if (!file.open(QIODevice::ReadOnly)) {
        return {};
    }
    return file.readAll().replace(regularStroke, strokeOf(weight));
}

} // namespace corvane::x11
