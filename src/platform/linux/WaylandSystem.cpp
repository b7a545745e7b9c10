#include "platform/linux/WaylandSystem.h"

#include "platform/wayland/kwin/HotKeys.h"
#include "platform/wayland/kwin/Windows.h"
#include "platform/wayland/sway/HotKeys.h"
#include "platform/wayland/sway/Windows.h"
#include "platform/wayland/windows/AccessibilityWindows.h"
#include "presentation/AccessibilityGuide.h"

#include <utility>

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

} // namespace

WaylandSystem::WaylandSystem(wayland::Events &events, drawing::SymbolImages &symbols,
                             qt::OwnWindows ownWindows)
    : kwinCursor_(isKWin(events.connection()) ? std::make_unique<wayland::kwin::Cursor>()
                                              : nullptr),
      mouseEvents_(readersOf(kwinCursor_.get())),
      screens_(events.connection()),
      overlayWindows_(events.connection(), screens_, symbols),
      windows_(windowsOf(kwinCursor_ != nullptr)),
      windowList_(*windows_),
      applications_(*windows_, freedesktop::DesktopEntries::ofUser()),
      accessibility_(*this, std::move(ownWindows)),
      hotKeys_(hotKeysOf(kwinCursor_ != nullptr)) {}

void WaylandSystem::Accessibility::openSettings() {
    guideWindow_.show(accessibilityGuide(AccessibilityObstacle::none));
}

std::shared_ptr<const platform::AccessibilityWindows>
WaylandSystem::Accessibility::windows(std::int32_t processIdentifier) {
    return wayland::accessibilityWindows(*system_.windows_,
                                         system_.applications_.processesWith(processIdentifier));
}

} // namespace corvane::linux
