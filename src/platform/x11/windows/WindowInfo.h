#pragma once

#include "platform/x11/connection/WindowProperty.h"
#include "support/Geometry.h"

#include <cstdint>
#include <optional>
#include <string>

namespace corvane::x11 {

/// Which program a window belongs to. Does not change as long as the window lives.
struct WindowOwner {
    xcb_window_t window = XCB_WINDOW_NONE;
    /// Absent for a program on another machine that does not name its process.
    std::optional<std::int32_t> processIdentifier{};
    /// Both parts of WM_CLASS, valid UTF-8.
    std::string instanceName{};
    std::string className{};

    bool operator==(const WindowOwner &) const = default;
};

/// The properties in which a window names its program: untrusted input.
struct OwnerProperties {
    PropertyValue processIdentifier;
    PropertyValue windowClass;

    /// `processOfClient`, the process that the server knows, outweighs the property: a program in a
    /// sandbox sees itself under another number.
    WindowOwner owner(xcb_window_t window, std::optional<std::uint32_t> processOfClient) const;
};

/// A window as the user sees it at one moment.
struct WindowInfo {
    xcb_window_t window = XCB_WINDOW_NONE;
    /// With its frame and without the shadow that the program draws; the root window's pixels.
    Rectangle bounds{};
    /// The window's own origin, inside any frame or border; the root window's pixels.
    Point origin{};
    /// Neither minimised nor hidden nor on another workspace.
    bool isOnScreen = false;
    /// Part of the desktop itself, like its icons.
    bool isDesktop = false;
    /// 0 for ordinary windows.
    std::int64_t layer = 0;
    /// Valid UTF-8; absent when the window has none.
    std::optional<std::string> title{};

    /// The same window with its origin at `position`.
    WindowInfo at(Point position) const {
        WindowInfo moved = *this;
        moved.bounds.x += position.x - origin.x;
        moved.bounds.y += position.y - origin.y;
        moved.origin = position;
        return moved;
    }

    bool operator==(const WindowInfo &) const = default;
};

/// What the server itself knows of a window.
struct ServerInfo {
    xcb_window_t window = XCB_WINDOW_NONE;
    /// Without any frame; the root window's pixels.
    Rectangle client{};
    bool isMapped = false;
    /// Whether window managers leave it alone (override-redirect).
    bool isUnmanaged = false;
};

/// The properties in which a window and its window manager describe the window: untrusted input.
struct WindowProperties {
    PropertyValue type;
    PropertyValue state;
    PropertyValue desktop;
    PropertyValue managedState;
    PropertyValue frameExtents;
    PropertyValue clientFrameExtents;
    PropertyValue name;
    PropertyValue oldName;

    WindowInfo info(const ServerInfo &server, const Atoms &atoms,
                    std::optional<std::uint32_t> currentDesktop) const;

  private:
    Rectangle bounds(const Rectangle &client) const;
    bool isMinimised(const Atoms &atoms) const;
    bool isElsewhere(std::optional<std::uint32_t> currentDesktop) const;
    std::optional<std::string> title(const Atoms &atoms) const;
};

} // namespace corvane::x11
