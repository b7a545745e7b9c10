#include "platform/linux/PanelColour.h"

#include "platform/linux/XcbConnection.h"

#include <QGuiApplication>
#include <QPalette>

#include <optional>
#include <string>

namespace corvane::x11 {

namespace {

xcb_window_t trayManager(const XcbConnection &connection) {
    const auto selection =
        connection.atom("_NET_SYSTEM_TRAY_S" + std::to_string(connection.screenNumber()));
    const XcbReply<xcb_get_selection_owner_reply_t> reply(xcb_get_selection_owner_reply(
        connection.get(), xcb_get_selection_owner(connection.get(), selection), nullptr));
    return reply ? reply->owner : xcb_window_t{XCB_WINDOW_NONE};
}

/// The manager's foreground colour: the first three of the twelve numbers it publishes.
std::optional<QColor> publishedColour(const XcbConnection &connection) {
    const auto manager = trayManager(connection);
    if (manager == XCB_WINDOW_NONE) {
        return std::nullopt;
    }
    constexpr std::uint32_t channels = 3;
    const XcbReply<xcb_get_property_reply_t> reply(xcb_get_property_reply(
        connection.get(),
        xcb_get_property(connection.get(), 0, manager, connection.atom("_NET_SYSTEM_TRAY_COLORS"),
                         XCB_ATOM_CARDINAL, 0, channels),
        nullptr));
    if (!reply || reply->format != 32 || reply->value_len < channels) {
        return std::nullopt;
    }
    const auto *values = static_cast<const std::uint32_t *>(xcb_get_property_value(reply.get()));
    const auto channel = [](std::uint32_t value) { return static_cast<quint16>(value & 0xFFFFU); };
    return QColor(
        QRgba64::fromRgba64(channel(values[0]), channel(values[1]), channel(values[2]), 0xFFFF));
}

bool isDesktop(QLatin1String name) {
    return qEnvironmentVariable("XDG_CURRENT_DESKTOP").contains(name);
}

} // namespace

QColor panelColour(const XcbConnection &connection) {
    if (const auto published = publishedColour(connection)) {
        return *published;
    }
    if (isDesktop(QLatin1String("GNOME")) || isDesktop(QLatin1String("Unity"))) {
        return Qt::white;
    }
    if (isDesktop(QLatin1String("KDE"))) {
        return QGuiApplication::palette().color(QPalette::WindowText);
    }
    return {0x3d, 0x84, 0xf5};
}

} // namespace corvane::x11
