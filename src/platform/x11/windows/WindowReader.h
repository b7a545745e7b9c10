#pragma once

#include "platform/x11/connection/XcbConnection.h"
#include "platform/x11/windows/WindowInfo.h"

#include <span>
#include <vector>

namespace corvane::x11 {

/// The window through which a window manager that follows EWMH shows that it runs; XCB_WINDOW_NONE
/// for any other and for one that has ended.
xcb_window_t windowManagerWindow(const XcbConnection &connection);

/// Reads many windows in one round trip: all requests are sent before the first reply is awaited.
/// Main thread.
class WindowReader {
  public:
    /// The connection outlives the reader.
    explicit WindowReader(const XcbConnection &connection);

    /// The windows that the window manager lists, front-most first; without a window manager those
    /// directly under the root window.
    std::vector<xcb_window_t> windows() const;

    /// The windows directly under the root window, front-most first, hidden ones included. Those
    /// that a window manager shows are inside its frames instead.
    std::vector<xcb_window_t> topLevelWindows() const;

    /// One for each window, also for one that no longer exists.
    std::vector<WindowOwner> owners(std::span<const xcb_window_t> windows) const;

    /// Without the windows that no longer exist or have nothing to show.
    std::vector<WindowInfo> info(std::span<const xcb_window_t> windows) const;

  private:
    const XcbConnection &connection_;
    const bool reportsProcesses_;
};

} // namespace corvane::x11
