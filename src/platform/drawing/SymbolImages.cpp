#include "platform/drawing/SymbolImages.h"

#include <QFile>
#include <QIconEngine>
#include <QPainter>
#include <QSvgRenderer>

#include <algorithm>
#include <cmath>
#include <utility>

namespace corvane::drawing {

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

QString drawingPath(const std::string &name) {
    return QStringLiteral(":/symbols/") + QString::fromStdString(name) + QStringLiteral(".svg");
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

/// Draws a symbol when it is painted, in the size that is needed: most icons are never shown.
class SymbolIcon : public QIconEngine {
  public:
    struct Colours {
        QColor normal;
        QColor disabled;
        /// Under the pointer or selected.
        QColor active;
    };

    /// The images outlive the icon and have such a symbol.
    SymbolIcon(SymbolImages &images, std::string name, const Colours &colours)
        : images_(images),
          name_(std::move(name)),
          colours_(colours) {}

    void paint(QPainter *painter, const QRect &rectangle, QIcon::Mode mode,
               QIcon::State state) override {
        const qreal ratio = painter->device()->devicePixelRatio();
        painter->drawPixmap(rectangle, pixmap(rectangle.size() * ratio, mode, state));
    }

    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State /*state*/) override {
        const int side = std::min(size.width(), size.height());
        return QPixmap::fromImage(images_.image(name_, colour(mode), side));
    }

    QIconEngine *clone() const override {
        return new SymbolIcon(images_, name_, colours_); // NOLINT: Qt takes ownership
    }

    bool isNull() override { return false; }

  private:
    const QColor &colour(QIcon::Mode mode) const {
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

    SymbolImages &images_;
    const std::string name_;
    const Colours colours_;
};

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
    if (!QFile::exists(drawingPath(name))) {
        return {};
    }
    // NOLINTNEXTLINE(cppcoreguidelines-owning-memory): the icon owns its engine
    return QIcon(new SymbolIcon(*this, name,
                                {.normal = palette.color(QPalette::Active, role),
                                 .disabled = palette.color(QPalette::Disabled, role),
                                 .active = palette.color(QPalette::Active, activeRole)}));
}

QByteArray SymbolImages::drawing(const std::string &name, FontWeight weight) {
    QFile file(drawingPath(name));
    if (!file.open(QIODevice::ReadOnly)) {
        return {};
    }
    return file.readAll().replace(regularStroke, strokeOf(weight));
}

} // namespace corvane::drawing
