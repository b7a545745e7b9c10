#include "platform/linux/DesktopReading.h"

#include "platform/drawing/MenuText.h"
#include "platform/freedesktop/bus/SessionBus.h"
#include "platform/freedesktop/tray/StatusNotifierRegistration.h"
#include "platform/linux/Compositor.h"
#include "platform/linux/PortalSystem.h"
#include "platform/linux/environment/EnvironmentVariable.h"
#include "platform/linux/environment/TextDecoding.h"
#include "platform/wayland/connection/Connection.h"
#include "platform/wayland/kwin/HotKeys.h"
#include "platform/wayland/kwin/Windows.h"
#include "platform/wayland/sway/HotKeys.h"
#include "platform/wayland/sway/Windows.h"
#include "platform/x11/connection/ServerAbilities.h"
#include "platform/x11/connection/WindowProperty.h"
#include "platform/x11/connection/XcbEvents.h"
#include "platform/x11/hotkey/HotKeys.h"
#include "platform/x11/windows/WindowReader.h"

#include <algorithm>
#include <array>
#include <string>
#include <utility>

namespace corvane::linux {

namespace {

/// What Corvane needs from a window manager: the list of windows and their order, the widths of
/// their frames, and the keyboard for its own windows.
constexpr std::array wantedHints{
    std::pair{"_NET_CLIENT_LIST", &x11::Atoms::clientList},
    std::pair{"_NET_CLIENT_LIST_STACKING", &x11::Atoms::clientListStacking},
    std::pair{"_NET_FRAME_EXTENTS", &x11::Atoms::frameExtents},
    std::pair{"_NET_ACTIVE_WINDOW", &x11::Atoms::activeWindow}};

bool hasOwner(const x11::XcbConnection &connection, xcb_atom_t selection) {
    return connection.selectionOwner(selection) != XCB_WINDOW_NONE;
}

HotKeyState stateOf(const HotKey &hotKey, x11::XcbEvents &events) {
    x11::HotKeys hotKeys(events);
    const auto key = hotKeys.registerHotKey(hotKey);
    if (key) {
        return HotKeyState::free;
    }
    return key.error() == XCB_ACCESS ? HotKeyState::taken : HotKeyState::noSuchKey;
}

StatusArea statusAreaOf(const x11::XcbConnection &connection) {
    if (freedesktop::hasStatusNotifierHost(freedesktop::sessionBusAddress())) {
        return StatusArea::panel;
    }
    return hasOwner(connection, connection.atoms().traySelection) ? StatusArea::systemTray
                                                                  : StatusArea::none;
}

std::string nameOf(const x11::XcbConnection &connection, xcb_window_t windowManager) {
    x11::WindowProperty name(connection, windowManager, connection.atoms().name);
    const std::string text = utf8Text(name.value().text());
    return text.empty() ? "The window manager" : text;
}

void readWindowManager(const x11::XcbConnection &connection, DesktopFacts &facts) {
    const xcb_window_t window = x11::windowManagerWindow(connection);
    facts.windowManager = window != XCB_WINDOW_NONE ? nameOf(connection, window) : "";
    x11::WindowProperty supported(connection, connection.root(), connection.atoms().supported);
    const auto offered = supported.value().numbers();
    for (const auto &[hint, atom] : wantedHints) {
        if (std::ranges::find(offered, connection.atoms().*atom) == offered.end()) {
            facts.missingHints.emplace_back(hint);
        }
    }
}

DesktopFacts factsWithoutServer() {
    return {.displayServer = isWaylandSession() ? DisplayServer::waylandOnly : DisplayServer::none,
            .displayName = environmentVariable("DISPLAY"),
            .isWaylandSession = isWaylandSession()};
}

template <typename HotKeys>
HotKeyState stateAmong(const HotKeys &hotKeys, const HotKey &hotKey) {
    if (!hotKeys.isOffered()) {
        return HotKeyState::notOffered;
    }
    return hotKeys.isTaken(hotKey) ? HotKeyState::taken : HotKeyState::free;
}

/// What the compositor's own interface offers beside the Wayland protocol.
void readCompositor(const wayland::Connection &compositor, const HotKey &hotKey,
                    DesktopFacts &facts) {
    if (compositor.virtualPointers() == nullptr) {
        facts.hotKey = stateAmong(wayland::kwin::HotKeys(), hotKey);
        facts.windowManager =
            wayland::kwin::Windows(QStringLiteral("corvane-doctor")).windows() ? "KWin" : "";
    } else {
        facts.hotKey = stateAmong(wayland::sway::HotKeys(), hotKey);
        facts.windowManager = wayland::sway::Windows().windows() ? "sway" : "";
    }
}

/// Nothing where the compositor lets no program click.
std::optional<DesktopFacts> factsOfCompositor(const x11::XcbConnection &xwayland,
                                              const HotKey &hotKey) {
    const auto compositor = connectToCompositor();
    if (!compositor) {
        return std::nullopt;
    }
    DesktopFacts facts{.displayServer = DisplayServer::wayland,
                       .displayName = environmentVariable("DISPLAY"),
                       .isWaylandSession = true,
                       .takesClicks = true,
                       .hotKeyName = drawing::hotKeyText(hotKey),
                       .statusArea = statusAreaOf(xwayland),
                       .hasCompositor = true};
    readCompositor(*compositor, hotKey, facts);
    return facts;
}

/// Nothing where the desktop's portal lets no program click.
std::optional<DesktopFacts> factsOfPortal(const x11::XcbConnection &xwayland,
                                          const HotKey &hotKey) {
    if (!PortalSystem::isOffered()) {
        return std::nullopt;
    }
    return DesktopFacts{.displayServer = DisplayServer::wayland,
                        .displayName = environmentVariable("DISPLAY"),
                        .isWaylandSession = true,
                        .needsConsent = true,
                        .hotKey = HotKeyState::notOffered,
                        .hotKeyName = drawing::hotKeyText(hotKey),
                        .statusArea = statusAreaOf(xwayland),
                        .hasCompositor = true,
                        .windowManager = ""};
}

} // namespace

bool isWaylandSession() {
    return !environmentVariable("WAYLAND_DISPLAY").empty() ||
           environmentVariable("XDG_SESSION_TYPE") == "wayland";
}

DesktopFacts readDesktopFacts(const HotKey &hotKey) {
    auto opened = x11::XcbConnection::open();
    if (!opened) {
        return factsWithoutServer();
    }
    x11::XcbEvents events(std::move(*opened), [] {});
    const x11::XcbConnection &connection = events.connection();
    const bool isXwayland = x11::isInsideWayland(connection);
    if (isXwayland) {
        if (const auto facts = factsOfCompositor(connection, hotKey)) {
            return *facts;
        }
        if (const auto facts = factsOfPortal(connection, hotKey)) {
            return *facts;
        }
    }
    DesktopFacts facts{.displayServer = isXwayland ? DisplayServer::xwayland : DisplayServer::x11,
                       .displayName = environmentVariable("DISPLAY"),
                       .isWaylandSession = isXwayland || isWaylandSession(),
                       .takesClicks = !isXwayland && x11::offersFakeInput(connection),
                       .hotKey = stateOf(hotKey, events),
                       .hotKeyName = drawing::hotKeyText(hotKey),
                       .statusArea = statusAreaOf(connection),
                       .hasCompositor =
                           hasOwner(connection, connection.atoms().compositorSelection)};
    readWindowManager(connection, facts);
    return facts;
}

} // namespace corvane::linux
