#include "platform/x11/screens/SystemTray.h"

#include "platform/x11/connection/WindowProperty.h"

#include <utility>

namespace corvane::x11 {

SystemTray::SystemTray(XcbEvents &events, std::function<void()> appeared,
                       std::function<void()> vanished)
    : events_(events),
      appeared_(std::move(appeared)),
      vanished_(std::move(vanished)),
      announcements_(
          events.masks().select(events.connection().root(), XCB_EVENT_MASK_STRUCTURE_NOTIFY)),
      subscription_(
          events.subscribe([this](const xcb_generic_event_t &event) { receive(event); })) {
    findManager();
}

std::optional<QColor> SystemTray::foreground() const {
    if (manager_ == XCB_WINDOW_NONE) {
        return std::nullopt;
    }
    // The property begins with the foreground's red, green and blue; colours for messages follow.
    constexpr std::size_t channels = 3;
    const auto &connection = events_.connection();
    const auto values =
        WindowProperty(connection, manager_, connection.atoms().trayColours).value().numbers();
    if (values.size() < channels) {
        return std::nullopt;
    }
    const auto channel = [](std::uint32_t value) { return static_cast<quint16>(value & 0xFFFFU); };
    return QColor(qRgba64(channel(values[0]), channel(values[1]), channel(values[2]), 0xFFFF));
}

void SystemTray::receive(const xcb_generic_event_t &event) {
    if (XcbEvents::typeOf(event) == XCB_CLIENT_MESSAGE) {
        const auto &message = reinterpret_cast<const xcb_client_message_event_t &>(event);
        if (message.type == events_.connection().atoms().selectionAnnouncement) {
            findManager();
            appeared_();
        }
    }
    if (XcbEvents::typeOf(event) == XCB_DESTROY_NOTIFY && manager_ != XCB_WINDOW_NONE &&
        reinterpret_cast<const xcb_destroy_notify_event_t &>(event).window == manager_) {
        findManager();
        vanished_();
    }
}

void SystemTray::findManager() {
    const auto &connection = events_.connection();
    manager_ = connection.selectionOwner(connection.atoms().traySelection);
    end_ = manager_ == XCB_WINDOW_NONE
               ? EventMasks::Selection()
               : events_.masks().select(manager_, XCB_EVENT_MASK_STRUCTURE_NOTIFY);
}

} // namespace corvane::x11
