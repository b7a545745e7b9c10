#pragma once

#include "platform/Accessibility.h"
#include "platform/linux/ClientWindows.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

namespace corvane::x11 {

/// The windows of other applications as `platform::Accessibility` gives them. Main thread.
class LinuxAccessibilityWindows {
  public:
    /// The windows outlive this.
    explicit LinuxAccessibilityWindows(ClientWindows &windows) : windows_(windows) {}

    /// Front-most first, as they are now. A window that is minimised, hidden or on another
    /// workspace has neither a position nor a size. Nothing when the server is gone.
    std::optional<std::vector<std::unique_ptr<platform::AccessibilityWindow>>>
    windows(std::int32_t processIdentifier);

  private:
    ClientWindows &windows_;
};

} // namespace corvane::x11
