#include "platform/x11/overlay/ScreenGrab.h"

#include <QPainter>

#include <optional>

namespace corvane::x11 {

namespace {

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
    const XcbReply<xcb_get_geometry_reply_t> root(xcb_get_geometry_reply(
        connection.get(), xcb_get_geometry(connection.get(), connection.root()), nullptr));
    return root ? QRect(0, 0, root->width, root->height) : QRect();
}

} // namespace

QImage screenGrab(const XcbConnection &connection, const QRect &area) {
    QImage grab(area.size(), QImage::Format_RGB32);
    grab.fill(Qt::black);
    const QRect readable = area.intersected(rootArea(connection));
    if (readable.isEmpty()) {
        return grab;
    }
    constexpr std::uint32_t allPlanes = ~0U;
    const auto cookie = xcb_get_image(connection.get(), XCB_IMAGE_FORMAT_Z_PIXMAP,
                                      connection.root(), static_cast<std::int16_t>(readable.x()),
                                      static_cast<std::int16_t>(readable.y()),
                                      static_cast<std::uint16_t>(readable.width()),
                                      static_cast<std::uint16_t>(readable.height()), allPlanes);
    const XcbReply<xcb_get_image_reply_t> reply(
        xcb_get_image_reply(connection.get(), cookie, nullptr));
    const auto format = reply ? formatOfDepth(reply->depth) : std::nullopt;
    if (format) {
        const auto bytesPerLine = xcb_get_image_data_length(reply.get()) / readable.height();
        const QImage pixels(xcb_get_image_data(reply.get()), readable.width(), readable.height(),
                            bytesPerLine, *format);
        QPainter(&grab).drawImage(readable.topLeft() - area.topLeft(), pixels);
    }
    return grab;
}

} // namespace corvane::x11
