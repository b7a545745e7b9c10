#pragma once

#include <string>
#include <vector>

namespace corvane {

/// What keeps clicks from reaching other applications, on a system that has no switch for it.
enum class AccessibilityObstacle {
    none,
    noTestExtension,
    waylandSession,
    /// The desktop asks the user before it lets a program click; the user has not answered yet.
    consentNeeded,
    consentRefused,
    /// Given for the screens, but not for the pointer.
    consentWithoutPointer,
    /// Given for the pointer, but not for a screen on which it could be found.
    consentWithoutScreen,
    consentEnded,
    /// The library is missing through which the desktop reports where the pointer is.
    noScreenCast
};

/// A page that explains what is missing and how to get it.
struct AccessibilityGuide {
    std::string title;
    std::string heading;
    std::vector<std::string> paragraphs;
    /// Where the user is to be asked, it leads to that question.
    std::string closeButton;

    bool operator==(const AccessibilityGuide &) const = default;
};

AccessibilityGuide accessibilityGuide(AccessibilityObstacle obstacle);

/// Whether the user can remove the obstacle by answering the desktop's question.
bool isAnsweredByUser(AccessibilityObstacle obstacle);

} // namespace corvane
