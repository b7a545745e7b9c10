#pragma once

#include "platform/x11/connection/XcbConnection.h"
#include "support/Geometry.h"

#include <cstdint>
#include <optional>
#include <string>

namespace corvane::x11 {

/// Whose window it is. Does not change as long as the window lives.
struct WindowOwner {
    xcb_window_t window = XCB_WINDOW_NONE;
    /// Absent for a program on another machine or one that does not say.
    std::optional<std::int32_t> processIdentifier{};
    /// Both parts of WM_CLASS, valid UTF-8.
    std::string instanceName{};
    std::string className{};

    bool operator==(const WindowOwner &) const = default;
};

/// A window as the user sees it at one moment.
struct WindowInfo {
    xcb_window_t window = XCB_WINDOW_NONE;
    /// With its frame and without the shadow it draws itself; the root window's pixels.
    Rectangle bounds{};
    /// The corner of its own, inside any frame or border; the root window's pixels.
    Point origin{};
    /// Neither minimised nor hidden nor on another workspace.
    bool isOnScreen = false;
    /// Part of the desktop itself, like its icons.
    bool isDesktop = false;
    /// 0 for ordinary windows.
    std::int64_t layer = 0;
    /// Valid UTF-8; absent when the window has none.
    std::optional<std::string> title{};

    /// The same window with its own corner at another place.
    WindowInfo at(Point place) const {
        WindowInfo moved = *this;
        moved.bounds.x += place.x - origin.x;
        moved.bounds.y += place.y - origin.y;
        moved.origin = place;
        return moved;
    }

    bool operator==(const WindowInfo &) const = default;
};

} // namespace corvane::x11
