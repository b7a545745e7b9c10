#pragma once

#include "support/Geometry.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace corvane::platform {

/// One window on the screen; what the system does not report is absent.
struct WindowListEntry {
    /// Global display space, the window's frame included.
    std::optional<Rectangle> bounds{};
    std::optional<std::int32_t> ownerProcessIdentifier{};
    /// Valid UTF-8.
    std::optional<std::string> name{};
    /// 0 for ordinary windows; panels, menus, docks and the like are on others.
    std::optional<std::int64_t> layer{};

    bool operator==(const WindowListEntry &) const = default;
};

/// The windows of all programs. Main thread.
class WindowList {
  public:
    virtual ~WindowList() = default;

    /// Front-most first, without desktop elements and without windows that are not on screen;
    /// nothing when the list cannot be read.
    virtual std::optional<std::vector<WindowListEntry>> onScreenWindows() = 0;
};

} // namespace corvane::platform
