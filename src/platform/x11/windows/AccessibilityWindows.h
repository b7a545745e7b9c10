#pragma once

#include "platform/Accessibility.h"
#include "platform/x11/windows/ClientWindows.h"

#include <cstdint>
#include <memory>

namespace corvane::x11 {

/// The windows of other applications as `platform::Accessibility` gives them. Main thread.
class AccessibilityWindows {
  public:
    /// The windows outlive this.
    explicit AccessibilityWindows(ClientWindows &windows) : windows_(windows) {}

    /// Front-most first, as they are now. A window that is minimised, hidden or on another
    /// workspace has neither a position nor a size. Null while they cannot be asked for.
    std::shared_ptr<const platform::AccessibilityWindows> windows(std::int32_t processIdentifier);

  private:
    ClientWindows &windows_;
    /// The last answer, and what it says.
    std::shared_ptr<const ClientWindows::Windows> known_;
    std::shared_ptr<const platform::AccessibilityWindows> answer_;
};

} // namespace corvane::x11
