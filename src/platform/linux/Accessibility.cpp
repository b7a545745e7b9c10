#include "platform/linux/Accessibility.h"

#include <utility>

namespace corvane::linux {

Accessibility::Accessibility(AccessibilitySource source, Applications &applications,
                             qt::OwnWindows ownWindows)
    : source_(std::move(source)),
      applications_(applications),
      guideWindow_(std::move(ownWindows)) {}

bool Accessibility::isProcessTrusted() { return source_.obstacle() == AccessibilityObstacle::none; }

bool Accessibility::isProcessTrustedWithPrompt() {
    const bool isTrusted = isProcessTrusted();
    if (!isTrusted) {
        openSettings();
    }
    return isTrusted;
}

std::shared_ptr<const platform::AccessibilityWindows>
Accessibility::windows(std::int32_t processIdentifier) {
    return isProcessTrusted() ? source_.windows(applications_.processesWith(processIdentifier))
                              : nullptr;
}

void Accessibility::openSettings() { guideWindow_.show(accessibilityGuide(source_.obstacle())); }

} // namespace corvane::linux
