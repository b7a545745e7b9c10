#pragma once

#include "platform/WindowList.h"

namespace corvane::testing {

/// The windows a test says are on the screen.
class FakeWindowList : public platform::WindowList {
  public:
    std::optional<std::vector<platform::WindowListEntry>> onScreenWindows() override {
        ++readings;
        return windows;
    }

    /// Front-most first; nothing for a list that cannot be read.
    std::optional<std::vector<platform::WindowListEntry>> windows{std::in_place};
    /// How often the list was read.
    int readings = 0;
};

} // namespace corvane::testing
