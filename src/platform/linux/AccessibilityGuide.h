#pragma once

#include "platform/qt/alerts/AccessibilityGuideWindow.h"

namespace corvane::linux {

/// What keeps clicks from reaching other applications.
enum class AccessibilityObstacle {
    none,
    noTestExtension,
    waylandSession,
    /// KWin does not accept the desktop file by which this program may press the button.
    kwinRefusal,
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

/// Explains what is missing and how to get it.
qt::AccessibilityGuide accessibilityGuide(AccessibilityObstacle obstacle);

/// Whether the user can remove the obstacle by answering the desktop's question.
bool isAnsweredByUser(AccessibilityObstacle obstacle);

} // namespace corvane::linux
