#pragma once

#include "support/Geometry.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace corvane::platform {

/// A window of another application. Main thread. Each read may fail on its own: the window may be
/// gone.
class AccessibilityWindow {
  public:
    virtual ~AccessibilityWindow() = default;

    /// Valid UTF-8.
    virtual std::optional<std::string> title() = 0;
    /// Global display space.
    virtual std::optional<Point> position() = 0;
    virtual std::optional<Size> size() = 0;
};

using AccessibilityWindows = std::vector<std::unique_ptr<AccessibilityWindow>>;

/// The right to act on other applications, and their windows. Main thread.
class Accessibility {
  public:
    virtual ~Accessibility() = default;

    /// Whether clicks can reach other applications at this moment.
    virtual bool isProcessTrusted() = 0;

    /// The same, asking the user for the right where the system has a prompt for it.
    virtual bool isProcessTrustedWithPrompt() = 0;

    /// Shows where the user grants the right, or what keeps clicks from reaching other applications
    /// on a system that has no switch for it. A failure is silent.
    virtual void openSettings() = 0;

    /// The application's windows in the order it gives them; null when they cannot be read. May be
    /// the same answer as before as long as nothing has changed.
    virtual std::shared_ptr<const AccessibilityWindows> windows(std::int32_t processIdentifier) = 0;
};

} // namespace corvane::platform
