#include "platform/linux/X11System.h"

#include "platform/wayland/kwin/Bus.h"
#include "platform/x11/connection/ServerAbilities.h"

#include <memory>
#include <utility>

namespace corvane::linux {

namespace {

WindowOwners ownersOf(const x11::ClientWindows::Owners &windows) {
    WindowOwners owners;
    owners.reserve(windows.size());
    for (const x11::WindowOwner &window : windows) {
        owners.push_back({window.processIdentifier, window.instanceName, window.className});
    }
    return owners;
}

/// Around an XWayland.
AccessibilityObstacle obstacleOfCompositor() {
    return wayland::kwin::isRunning() ? AccessibilityObstacle::kwinRefusal
                                      : AccessibilityObstacle::waylandSession;
}

/// Whether the server is an XWayland never changes; the extensions are read each time.
std::function<AccessibilityObstacle()> obstacleOf(const x11::XcbConnection &connection) {
    if (x11::isInsideWayland(connection)) {
        return [obstacle = obstacleOfCompositor()] { return obstacle; };
    }
    return [&connection] {
        return x11::offersFakeInput(connection) ? AccessibilityObstacle::none
                                                : AccessibilityObstacle::noTestExtension;
    };
}

} // namespace

WindowOwnerSource windowOwners(x11::ClientWindows &windows) {
    struct Known {
        std::shared_ptr<const x11::ClientWindows::Owners> read;
        std::shared_ptr<const WindowOwners> owners;
    };
    const auto listed = [&windows, known = std::make_shared<Known>()] {
        if (auto read = windows.owners(); read != known->read) {
            known->owners = std::make_shared<const WindowOwners>(ownersOf(*read));
            known->read = std::move(read);
        }
        return known->owners;
    };
    return {.listed = listed, .all = [&windows] { return ownersOf(windows.topLevelOwners()); }};
}

X11System::X11System(x11::XcbEvents &events, std::unique_ptr<x11::XcbConnection> windowConnection,
                     platform::MainQueue &mainQueue, drawing::SymbolImages &symbols,
                     qt::OwnWindows ownWindows)
    : mouseEvents_(events.connection()),
      screens_(events),
      overlayWindows_(events, screens_, symbols),
      windowList_(events.connection()),
      clientWindows_(std::move(windowConnection), mainQueue),
      applications_(windowOwners(clientWindows_), freedesktop::DesktopEntries::ofUser()),
      accessibility_({.obstacle = obstacleOf(events.connection()),
                      .windows =
                          [this](const auto &processes) {
                              return clientWindows_.accessibilityWindowsOf(processes);
                          }},
                     applications_, std::move(ownWindows)),
      hotKeys_(events) {}

} // namespace corvane::linux
