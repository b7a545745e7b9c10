#pragma once

#include "platform/qt/alerts/AccessibilityGuideWindow.h"

namespace corvane::linux {

/// What keeps clicks from reaching other applications.
enum class AccessibilityObstacle { none, noTestExtension, waylandSession };

/// Explains what is missing and how to get it.
qt::AccessibilityGuide accessibilityGuide(AccessibilityObstacle obstacle);

} // namespace corvane::linux
