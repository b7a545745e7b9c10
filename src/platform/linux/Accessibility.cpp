#include "platform/linux/Accessibility.h"

#include "platform/x11/connection/ServerAbilities.h"

namespace corvane::x11 {

LinuxAccessibility::LinuxAccessibility(const XcbConnection &connection, ClientWindows &windows)
    : connection_(connection),
      windows_(windows),
      isInsideWayland_(isInsideWayland(connection_)) {}

bool LinuxAccessibility::isProcessTrusted() { return obstacle() == AccessibilityObstacle::none; }

bool LinuxAccessibility::isProcessTrustedWithPrompt() {
    const bool isTrusted = isProcessTrusted();
    if (!isTrusted) {
        showGuide();
    }
    return isTrusted;
}

std::shared_ptr<const platform::AccessibilityWindows>
LinuxAccessibility::windows(std::int32_t processIdentifier) {
    if (!isProcessTrusted()) {
        return nullptr;
    }
    return windows_.windows(processIdentifier);
}

void LinuxAccessibility::showGuide() { guideWindow_.show(accessibilityGuide(obstacle())); }

AccessibilityObstacle LinuxAccessibility::obstacle() const {
    if (isInsideWayland_) {
        return AccessibilityObstacle::waylandSession;
    }
    return offersFakeInput(connection_) ? AccessibilityObstacle::none
                                        : AccessibilityObstacle::noTestExtension;
}

} // namespace corvane::x11
