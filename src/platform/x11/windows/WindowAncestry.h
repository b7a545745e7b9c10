#pragma once

#include "platform/x11/connection/EventMasks.h"
#include "platform/x11/connection/XcbConnection.h"
#include "support/Geometry.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace corvane::x11 {

/// A window, the frames that window managers have put around it, and the position of each in the
/// next. Kept up to date by the server's events, so that the window's position is known without a
/// request. Valid until one of them is put into another window. Main thread.
class WindowAncestry {
  public:
    /// Reads them from the server and selects the events of their changes. Connection and masks
    /// outlive the ancestry.
    WindowAncestry(const XcbConnection &connection, EventMasks &masks, xcb_window_t window);

    bool contains(xcb_window_t window) const;

    /// Applies the server's own ConfigureNotify or GravityNotify event for one of them. False when
    /// more than a position may have changed, so that the window has to be read again.
    bool update(const xcb_generic_event_t &event);

    /// The origin of the window inside its border, on the root window; absent when the window had
    /// gone before it could be read.
    std::optional<Point> origin() const;

  private:
    struct Link {
        xcb_window_t window;
        EventMasks::Selection events;
        /// The number of the request that read the position.
        std::uint32_t request = 0;
        /// The origin outside the border, relative to the window around it inside that one's
        /// border.
        int x = 0;
        int y = 0;
        int width = 0;
        int height = 0;
        int border = 0;
    };

    Link *find(xcb_window_t window, std::uint32_t eventSequence);
    bool configured(const xcb_configure_notify_event_t &event, std::uint32_t sequence);
    void pushed(const xcb_gravity_notify_event_t &event, std::uint32_t sequence);

    /// From the innermost to the outermost.
    std::vector<Link> links_;
    bool isComplete_ = false;
};

} // namespace corvane::x11
