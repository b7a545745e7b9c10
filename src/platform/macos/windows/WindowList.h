#pragma once

#include "platform/WindowList.h"

namespace corvane::macos {

/// The window server's list.
class WindowList : public platform::WindowList {
  public:
    std::optional<std::vector<platform::WindowListEntry>> onScreenWindows() override;
};

} // namespace corvane::macos
