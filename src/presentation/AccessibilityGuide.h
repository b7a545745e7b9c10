#pragma once

#include <string>
#include <vector>

namespace corvane {

/// What keeps clicks from reaching other applications, on a system that has no switch for it.
enum class AccessibilityObstacle { none, noTestExtension, waylandSession };

/// A page that explains what is missing and how to get it.
struct AccessibilityGuide {
    std::string title;
    std::string heading;
    std::vector<std::string> paragraphs;
    std::string closeButton;

    bool operator==(const AccessibilityGuide &) const = default;
};

AccessibilityGuide accessibilityGuide(AccessibilityObstacle obstacle);

} // namespace corvane
