#include "platform/linux/DesktopReading.h"

#include "platform/drawing/MenuText.h"
#include "platform/linux/environment/TextDecoding.h"
#include "platform/x11/connection/ServerAbilities.h"
#include "platform/x11/connection/WindowProperty.h"
#include "platform/x11/connection/XcbEvents.h"
#include "platform/x11/hotkey/HotKeys.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusReply>
#include <QDBusVariant>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <string>
#include <utility>

namespace corvane::linux {

namespace {

/// What Corvane asks a window manager: which windows there are and in what order, how wide their
/// frames are, and to give its own windows the keyboard.
constexpr std::array wantedHints{"_NET_CLIENT_LIST", "_NET_CLIENT_LIST_STACKING",
                                 "_NET_FRAME_EXTENTS", "_NET_ACTIVE_WINDOW"};

std::string variable(const char *name) {
    const char *value = std::getenv(name); // NOLINT(concurrency-mt-unsafe)
    return value != nullptr ? value : "";
}

bool hasOwner(const x11::XcbConnection &connection, const std::string &selection) {
    const x11::XcbReply<xcb_get_selection_owner_reply_t> reply(xcb_get_selection_owner_reply(
        connection.get(), xcb_get_selection_owner(connection.get(), connection.atom(selection)),
        nullptr));
    return reply && reply->owner != XCB_WINDOW_NONE;
}

/// Of the selections that a screen has one of each.
bool hasOwnerOnScreen(const x11::XcbConnection &connection, const std::string &selection) {
    return hasOwner(connection, selection + std::to_string(connection.screenNumber()));
}

HotKeyState stateOf(const platform::HotKey &hotKey, x11::XcbEvents &events) {
    x11::HotKeys hotKeys(events);
    const auto key = hotKeys.registerHotKey(hotKey);
    if (key) {
        return HotKeyState::free;
    }
    return key.error() == XCB_ACCESS ? HotKeyState::taken : HotKeyState::noSuchKey;
}

bool hasPanelOnBus() {
    constexpr int patienceMilliseconds = 3000;
    const QString watcher = QStringLiteral("org.kde.StatusNotifierWatcher");
    const auto bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus,
                                                   QStringLiteral("desktop-reading"));
    auto question = QDBusMessage::createMethodCall(
        watcher, QStringLiteral("/StatusNotifierWatcher"),
        QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"));
    question << watcher << QStringLiteral("IsStatusNotifierHostRegistered");
    question.setAutoStartService(false);
    const QDBusReply<QDBusVariant> answer = bus.call(question, QDBus::Block, patienceMilliseconds);
    QDBusConnection::disconnectFromBus(bus.name());
    return answer.isValid() && answer.value().variant().toBool();
}

StatusArea statusAreaOf(const x11::XcbConnection &connection) {
    if (hasPanelOnBus()) {
        return StatusArea::panel;
    }
    return hasOwnerOnScreen(connection, "_NET_SYSTEM_TRAY_S") ? StatusArea::systemTray
                                                              : StatusArea::none;
}

/// The window through which a window manager that follows EWMH shows itself; none for another.
xcb_window_t windowManagerWindow(const x11::XcbConnection &connection) {
    const xcb_atom_t check = connection.atom("_NET_SUPPORTING_WM_CHECK");
    const auto window = x11::WindowProperty(connection, connection.root(), check).number();
    // One that has ended leaves the root window's property behind.
    const bool isAlive =
        window && x11::WindowProperty(connection, *window, check).number() == window;
    return isAlive ? *window : static_cast<xcb_window_t>(XCB_WINDOW_NONE);
}

std::string nameOf(const x11::XcbConnection &connection, xcb_window_t windowManager) {
    x11::WindowProperty name(connection, windowManager, connection.atom("_NET_WM_NAME"));
    const std::string text = utf8Text(name.value().text());
    return text.empty() ? "The window manager" : text;
}

void readWindowManager(const x11::XcbConnection &connection, DesktopFacts &facts) {
    const xcb_window_t window = windowManagerWindow(connection);
    facts.windowManager = window != XCB_WINDOW_NONE ? nameOf(connection, window) : "";
    x11::WindowProperty supported(connection, connection.root(), connection.atom("_NET_SUPPORTED"));
    const auto offered = supported.value().numbers();
    for (const char *hint : wantedHints) {
        if (std::ranges::find(offered, connection.atom(hint)) == offered.end()) {
            facts.missingHints.emplace_back(hint);
        }
    }
}

DesktopFacts factsWithoutServer() {
    return {.displayServer = isWaylandSession() ? DisplayServer::waylandOnly : DisplayServer::none,
            .displayName = variable("DISPLAY"),
            .isWaylandSession = isWaylandSession()};
}

} // namespace

bool isWaylandSession() {
    return !variable("WAYLAND_DISPLAY").empty() || variable("XDG_SESSION_TYPE") == "wayland";
}

DesktopFacts readDesktopFacts(const platform::HotKey &hotKey) {
    auto opened = x11::XcbConnection::open();
    if (!opened) {
        return factsWithoutServer();
    }
    x11::XcbEvents events(std::move(*opened), [] {});
    const x11::XcbConnection &connection = events.connection();
    const bool isXwayland = x11::isInsideWayland(connection);
    DesktopFacts facts{.displayServer = isXwayland ? DisplayServer::xwayland : DisplayServer::x11,
                       .displayName = variable("DISPLAY"),
                       .isWaylandSession = isXwayland || isWaylandSession(),
                       .takesClicks = !isXwayland && x11::offersFakeInput(connection),
                       .hotKey = stateOf(hotKey, events),
                       .hotKeyName = drawing::startStopKeyName(),
                       .statusArea = statusAreaOf(connection),
                       .hasCompositor = hasOwnerOnScreen(connection, "_NET_WM_CM_S")};
    readWindowManager(connection, facts);
    return facts;
}

} // namespace corvane::linux
