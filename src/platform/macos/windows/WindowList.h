#pragma once

#include "platform/WindowList.h"

namespace corvane::platform {
class Accessibility;
}

namespace corvane::macos {

/// The window server's list, with the names that it keeps to itself added.
class WindowList : public platform::WindowList {
  public:
    /// `accessibility` outlives the list.
    explicit WindowList(platform::Accessibility &accessibility) : accessibility_(accessibility) {}

    std::optional<std::vector<platform::WindowListEntry>> onScreenWindows() override;

  private:
    platform::Accessibility &accessibility_;
};

} // namespace corvane::macos
