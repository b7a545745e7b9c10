#include "platform/linux/Accessibility.h"

#include "platform/x11/connection/ServerAbilities.h"

#include <utility>

namespace corvane::linux {

Accessibility::Accessibility(const x11::XcbConnection &connection, x11::ClientWindows &windows,
                             Applications &applications, qt::OwnWindows ownWindows)
    : connection_(connection),
      windows_(windows),
      applications_(applications),
      isInsideWayland_(x11::isInsideWayland(connection_)),
      guideWindow_(std::move(ownWindows)) {}

bool Accessibility::isProcessTrusted() { return obstacle() == AccessibilityObstacle::none; }

bool Accessibility::isProcessTrustedWithPrompt() {
    const bool isTrusted = isProcessTrusted();
    if (!isTrusted) {
        openSettings();
    }
    return isTrusted;
}

std::shared_ptr<const platform::AccessibilityWindows>
Accessibility::windows(std::int32_t processIdentifier) {
    if (!isProcessTrusted()) {
        return nullptr;
    }
    return windows_.accessibilityWindowsOf(applications_.processesWith(processIdentifier));
}

void Accessibility::openSettings() { guideWindow_.show(accessibilityGuide(obstacle())); }

AccessibilityObstacle Accessibility::obstacle() const {
    if (isInsideWayland_) {
        return AccessibilityObstacle::waylandSession;
    }
    return x11::offersFakeInput(connection_) ? AccessibilityObstacle::none
                                             : AccessibilityObstacle::noTestExtension;
}

} // namespace corvane::linux
