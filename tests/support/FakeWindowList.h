#pragma once

#include "platform/WindowList.h"

namespace corvane::testing {

/// The windows a test says are on the screen.
class FakeWindowList : public platform::WindowList {
  public:
    std::optional<std::vector<platform::WindowListEntry>> onScreenWindows() override {
        ++readings;
        auto told = windows;
        if (keepsNamesToItself && told) {
            for (platform::WindowListEntry &entry : *told) {
                entry.name.reset();
            }
        }
        return told;
    }

    /// Front-most first; nothing for a list that cannot be read.
    std::optional<std::vector<platform::WindowListEntry>> windows{std::in_place};
    /// Whether windows are listed without their names.
    bool keepsNamesToItself = false;
    /// How often the list was read.
    int readings = 0;
};

} // namespace corvane::testing
