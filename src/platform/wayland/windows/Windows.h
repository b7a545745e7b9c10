#pragma once

#include "support/Geometry.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace corvane::wayland {

/// A window of any program.
struct Window {
    std::string title;
    /// What the program calls itself: a Wayland client's application identifier, or an X client's
    /// instance and class.
    std::string instanceName;
    std::string className;
    std::int32_t processIdentifier = 0;
    /// Global display space, the frame included.
    Rectangle frame;
    bool isOnScreen = false;

    bool operator==(const Window &) const = default;
};

/// Other programs' windows as the compositor reports them. Main thread.
class Windows {
  public:
    virtual ~Windows() = default;

    /// Front-most first; nothing when they cannot be read.
    virtual std::optional<std::vector<Window>> windows() = 0;
};

} // namespace corvane::wayland
