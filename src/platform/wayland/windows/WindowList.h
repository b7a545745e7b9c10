#pragma once

#include "platform/WindowList.h"
#include "platform/wayland/windows/Windows.h"

namespace corvane::wayland {

/// The windows that the compositor reports.
class WindowList : public platform::WindowList {
  public:
    /// The windows outlive the list.
    explicit WindowList(Windows &windows) : windows_(windows) {}

    std::optional<std::vector<platform::WindowListEntry>> onScreenWindows() override;

  private:
    Windows &windows_;
};

} // namespace corvane::wayland
