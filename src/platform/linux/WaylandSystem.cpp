#include "platform/linux/WaylandSystem.h"

#include "platform/wayland/kwin/EisDevice.h"
#include "platform/wayland/kwin/HotKeys.h"
#include "platform/wayland/kwin/Windows.h"
#include "platform/wayland/sway/HotKeys.h"
#include "platform/wayland/sway/Windows.h"
#include "platform/wayland/windows/AccessibilityWindows.h"

#include <memory>
#include <utility>
#include <vector>

namespace corvane::linux {

namespace {

/// By what the compositor offers, as the clicks are made.
bool isKWin(const wayland::Connection &connection) {
    return connection.virtualPointers() == nullptr;
}

std::unique_ptr<wayland::Windows> windowsOf(bool isKWin) {
    if (isKWin) {
        return std::make_unique<wayland::kwin::Windows>(QStringLiteral("corvane-windows"));
    }
    return std::make_unique<wayland::sway::Windows>();
}

std::unique_ptr<platform::HotKeys> hotKeysOf(bool isKWin) {
    if (isKWin) {
        return std::make_unique<wayland::kwin::HotKeys>();
    }
    return std::make_unique<wayland::sway::HotKeys>();
}

wayland::MouseEvents::CursorReaders readersOf(wayland::kwin::Cursor *cursor) {
    if (cursor == nullptr) {
        return {};
    }
    return [cursor] { return cursor->read(); };
}

/// KWin 6 also gives a mouse to programs without the permission for fake input.
wayland::MouseEvents::OtherDevices otherDevicesOf(bool isKWin) {
    if (!isKWin) {
        return {};
    }
    return [] { return wayland::kwin::EisDevice::open(); };
}

/// The compositor is the window system only where it lets the program click.
AccessibilityObstacle clicksReachEverything() { return AccessibilityObstacle::none; }

/// The compositor does not say which windows are hidden from its list: all are in it.
WindowOwnerSource windowOwners(wayland::Windows &windows) {
    const auto listed = [&windows] {
        auto owners = std::make_shared<WindowOwners>();
        for (auto &window : windows.windows().value_or(std::vector<wayland::Window>())) {
            owners->push_back({window.processIdentifier, std::move(window.instanceName),
                               std::move(window.className)});
        }
        return owners;
    };
    return {.listed = listed, .all = [] { return WindowOwners(); }};
}

} // namespace

WaylandSystem::WaylandSystem(wayland::Events &events, drawing::SymbolImages &symbols,
                             qt::OwnWindows ownWindows)
    : kwinCursor_(isKWin(events.connection()) ? std::make_unique<wayland::kwin::Cursor>()
                                              : nullptr),
      mouseEvents_(readersOf(kwinCursor_.get()), otherDevicesOf(kwinCursor_ != nullptr)),
      screens_(events.connection()),
      overlayWindows_(events.connection(), screens_, symbols),
      windows_(windowsOf(kwinCursor_ != nullptr)),
      windowList_(*windows_),
      applications_(windowOwners(*windows_), freedesktop::DesktopEntries::ofUser()),
      accessibility_({.obstacle = clicksReachEverything,
                      .windows =
                          [this](const auto &processes) {
                              return wayland::accessibilityWindows(*windows_, processes);
                          }},
                     applications_, std::move(ownWindows)),
      hotKeys_(hotKeysOf(kwinCursor_ != nullptr)) {}

} // namespace corvane::linux
