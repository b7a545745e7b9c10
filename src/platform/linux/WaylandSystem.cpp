#include "platform/linux/WaylandSystem.h"

#include "platform/wayland/windows/AccessibilityWindows.h"
#include "presentation/AccessibilityGuide.h"

#include <utility>

namespace corvane::linux {

WaylandSystem::WaylandSystem(wayland::Events &events, drawing::SymbolImages &symbols,
                             qt::OwnWindows ownWindows)
    : screens_(events.connection()),
      overlayWindows_(events.connection(), screens_, symbols),
      windowList_(windows_),
      applications_(windows_, freedesktop::DesktopEntries::ofUser()),
      accessibility_(*this, std::move(ownWindows)) {}

void WaylandSystem::Accessibility::openSettings() {
    guideWindow_.show(accessibilityGuide(AccessibilityObstacle::none));
}

std::shared_ptr<const platform::AccessibilityWindows>
WaylandSystem::Accessibility::windows(std::int32_t processIdentifier) {
    return wayland::accessibilityWindows(system_.windows_,
                                         system_.applications_.processesWith(processIdentifier));
}

} // namespace corvane::linux
