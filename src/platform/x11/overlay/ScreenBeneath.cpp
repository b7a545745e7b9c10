#include "platform/x11/overlay/ScreenBeneath.h"

#include "platform/x11/overlay/Overlay.h"
#include "platform/x11/overlay/OverlayImage.h"

#include <QPainter>
#include <QThread>

#include <cstdint>
#include <optional>

namespace corvane::x11 {

namespace {

constexpr std::chrono::milliseconds redrawTime(100);

std::optional<QImage::Format> formatOfDepth(std::uint8_t depth) {
    switch (depth) {
    case 16:
        return QImage::Format_RGB16;
    case 24:
    case 32:
        return QImage::Format_RGB32;
    default:
        return std::nullopt;
    }
}

QRect rootArea(const XcbConnection &connection) {
    const auto root = reply<xcb_get_geometry_reply>(
        connection.get(), xcb_get_geometry(connection.get(), connection.root()));
    return root ? QRect(0, 0, root->width, root->height) : QRect();
}

QImage readScreen(const XcbConnection &connection, const QRect &area) {
    QImage image(area.size(), QImage::Format_RGB32);
    image.fill(Qt::black);
    const QRect readable = area.intersected(rootArea(connection));
    if (readable.isEmpty()) {
        return image;
    }
    constexpr std::uint32_t allPlanes = ~0U;
    const auto cookie = xcb_get_image(connection.get(), XCB_IMAGE_FORMAT_Z_PIXMAP,
                                      connection.root(), static_cast<std::int16_t>(readable.x()),
                                      static_cast<std::int16_t>(readable.y()),
                                      static_cast<std::uint16_t>(readable.width()),
                                      static_cast<std::uint16_t>(readable.height()), allPlanes);
    const auto screen = reply<xcb_get_image_reply>(connection.get(), cookie);
    const auto format = screen ? formatOfDepth(screen->depth) : std::nullopt;
    if (format) {
        const auto bytesPerLine = xcb_get_image_data_length(screen.get()) / readable.height();
        const QImage pixels(xcb_get_image_data(screen.get()), readable.width(), readable.height(),
                            bytesPerLine, *format);
        QPainter(&image).drawImage(readable.topLeft() - area.topLeft(), pixels);
    }
    return image;
}

} // namespace

ScreenBeneath::ScreenBeneath(XcbEvents &events, const OverlayVisual &visual)
    : connection_(events.connection()),
      visual_(visual),
      compositor_(events, [this] { compositorChanged(); }) {}

bool ScreenBeneath::showsThrough() const { return visual_.hasAlpha() && compositor_.isRunning(); }

QImage ScreenBeneath::image(const QRect &area) {
    // A pick reads the area of one screen after the other.
    if (std::chrono::steady_clock::now() - lastRead_ >= redrawTime) {
        connection_.flush();
        QThread::msleep(redrawTime.count());
    }
    lastRead_ = std::chrono::steady_clock::now();
    return readScreen(connection_, area);
}

void ScreenBeneath::compositorChanged() {
    for (Overlay *const overlay : overlays_) {
        overlay->uncoverScreen();
    }
    for (Overlay *const overlay : overlays_) {
        overlay->showAnew();
    }
}

} // namespace corvane::x11
