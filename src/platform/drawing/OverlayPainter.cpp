#include "platform/drawing/OverlayPainter.h"

#include "platform/drawing/QtColour.h"

#include <QPainter>
#include <QPainterPath>
#include <QPen>

#include <algorithm>
#include <cmath>
#include <optional>

namespace corvane::drawing {

namespace {

/// What is less opaque than this cannot be shown without blending.
constexpr double faintest = 0.5;

QRectF fromTop(const Rectangle &bounds, int height) {
    return {bounds.x, height - bounds.maxY(), bounds.width, bounds.height};
}

QPainterPath painterPath(const Path &path, int height) {
    const QRectF bounds = fromTop(path.bounds, height);
    QPainterPath result;
    switch (path.kind) {
    case Path::Kind::rectangle:
        // Starts at the bottom left, as dashes are counted from there.
        result.addPolygon(QPolygonF(
            {bounds.bottomLeft(), bounds.bottomRight(), bounds.topRight(), bounds.topLeft()}));
        result.closeSubpath();
        break;
    case Path::Kind::roundedRectangle:
        result.addRoundedRect(bounds, path.cornerRadius, path.cornerRadius);
        break;
    case Path::Kind::ellipse:
        result.addEllipse(bounds);
        break;
    }
    return result;
}

/// The colour as this scene can show it; nothing when it cannot.
std::optional<QColor> visibleColour(const std::optional<Colour> &colour,
                                    OverlayScene::Blending blending) {
    if (!colour) {
        return std::nullopt;
    }
    if (blending != OverlayScene::Blending::cutOut) {
        return qtColour(*colour);
    }
    return colour->alpha < faintest ? std::nullopt : std::optional(qtColour({colour->name, 1}));
}

QPen penFor(const Shape &shape, const QColor &colour) {
    QPen pen(colour, shape.lineWidth, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin);
    if (!shape.dashPattern.empty() && shape.lineWidth > 0) {
        QList<qreal> pattern;
        for (const double length : shape.dashPattern) {
            pattern.append(length / shape.lineWidth);
        }
        pen.setDashPattern(pattern);
    }
    return pen;
}

/// Without blending a pixel is there in full or not at all.
void removeTranslucency(QImage &image) {
    constexpr int halfCovered = 128;
    for (int y = 0; y < image.height(); ++y) {
        auto *row = reinterpret_cast<QRgb *>(image.scanLine(y));
        std::transform(row, row + image.width(), row, [](QRgb pixel) {
            return qAlpha(pixel) < halfCovered ? QRgb{0} : qUnpremultiply(pixel) | 0xFF000000U;
        });
    }
}

/// The line lies half outside the path, and smoothing may touch one more pixel.
double reach(const Shape &shape) { return (shape.stroke ? shape.lineWidth / 2 : 0) + 1; }

QRect pixelsOf(const Shape &shape, int height) {
    return fromTop(shape.path.bounds.insetBy(-reach(shape)), height).toAlignedRect();
}

QRect pixelsOf(const SymbolDrawing &symbol, int height) {
    return fromTop(symbol.frame, height).toAlignedRect();
}

QRect pixelsOf(const std::variant<Shape, SymbolDrawing> &item, int height) {
    return std::visit([height](const auto &drawn) { return pixelsOf(drawn, height); }, item);
}

/// The fill that two rectangles of the same style have in common.
QRect commonInside(const Shape &one, const Shape &other, int height) {
    Shape styled = one;
    styled.path = other.path;
    if (styled != other || one.path.kind != Path::Kind::rectangle ||
        other.path.kind != Path::Kind::rectangle) {
        return {};
    }
    const QRectF inside =
        fromTop(one.path.bounds.insetBy(reach(one)), height)
            .intersected(fromTop(other.path.bounds.insetBy(reach(other)), height));
    const QPoint corner(static_cast<int>(std::ceil(inside.left())),
                        static_cast<int>(std::ceil(inside.top())));
    const QPoint end(static_cast<int>(std::floor(inside.right())) - 1,
                     static_cast<int>(std::floor(inside.bottom())) - 1);
    return inside.isEmpty() ? QRect() : QRect(corner, end);
}

QRegion difference(const std::variant<Shape, SymbolDrawing> &one,
                   const std::variant<Shape, SymbolDrawing> &other, int height) {
    QRegion region = QRegion(pixelsOf(one, height)).united(pixelsOf(other, height));
    const auto *shape = std::get_if<Shape>(&one);
    const auto *otherShape = std::get_if<Shape>(&other);
    if (shape != nullptr && otherShape != nullptr) {
        region -= commonInside(*shape, *otherShape, height);
    }
    return region;
}

} // namespace

QImage OverlayPainter::paint(const OverlayScene &scene, const QRect &piece) const {
    QImage image(piece.size(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    if (!scene.backdrop.isNull()) {
        painter.drawImage(QPoint(), scene.backdrop, piece.translated(-scene.part.topLeft()));
    }
    painter.translate(-piece.topLeft());
    if (const auto colour = visibleColour(scene.background, scene.blending)) {
        painter.fillRect(piece, *colour);
    }
    for (const auto &item : scene.drawing) {
        std::visit([&](const auto &drawn) { paint(painter, scene, drawn); }, item);
    }
    painter.end();
    if (scene.blending == OverlayScene::Blending::cutOut) {
        removeTranslucency(image);
    }
    return image;
}

void OverlayPainter::paint(QPainter &painter, const OverlayScene &scene, const Shape &shape) const {
    const QPainterPath path = painterPath(shape.path, scene.size.height());
    if (const auto colour = visibleColour(shape.fill, scene.blending)) {
        painter.fillPath(path, *colour);
    }
    if (const auto colour = visibleColour(shape.stroke, scene.blending)) {
        painter.strokePath(path, penFor(shape, *colour));
    }
}

void OverlayPainter::paint(QPainter &painter, const OverlayScene &scene,
                           const SymbolDrawing &symbol) const {
    const auto colour = visibleColour(symbol.colour, scene.blending);
    const QRectF frame = fromTop(symbol.frame, scene.size.height());
    const int pixels = static_cast<int>(std::lround(std::max(frame.width(), frame.height())));
    if (!colour || pixels <= 0) {
        return;
    }
    const QImage image = symbols_.image(symbol.symbol.name, *colour, pixels, symbol.symbol.weight);
    if (!image.isNull()) {
        painter.drawImage(frame, image);
    }
}

QRegion OverlayPainter::difference(const OverlayScene &one, const OverlayScene &other) {
    const Drawing &before = one.drawing;
    const Drawing &after = other.drawing;
    const int height = other.size.height();
    QRegion region;
    for (std::size_t index = 0; index < std::max(before.size(), after.size()); ++index) {
        if (index >= before.size()) {
            region += pixelsOf(after[index], height);
        } else if (index >= after.size()) {
            region += pixelsOf(before[index], height);
        } else if (before[index] != after[index]) {
            region += drawing::difference(before[index], after[index], height);
        }
    }
    return region.intersected(other.part).translated(-other.part.topLeft());
}

} // namespace corvane::drawing
