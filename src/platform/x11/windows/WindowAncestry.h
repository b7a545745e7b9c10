#pragma once

#include "platform/x11/connection/EventMasks.h"
#include "platform/x11/connection/XcbConnection.h"
#include "support/Geometry.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace corvane::x11 {

/// A window and the frames that window managers have put around it, and where each of them is in
/// the next one. Kept up to date by the server's events, it tells without a question where the
/// window is. Valid until one of them is put into another window. Main thread.
class WindowAncestry {
  public:
    /// Asks the server, and has it tell what changes from then on. Connection and masks outlive the
    /// chain.
    WindowAncestry(const XcbConnection &connection, EventMasks &masks, xcb_window_t window);

    bool contains(xcb_window_t window) const;

    /// Takes note of what the server itself has told of one of them: a ConfigureNotify or
    /// GravityNotify event. False where more than a place may have changed, so that the window has
    /// to be looked at anew.
    bool takeNote(const xcb_generic_event_t &event);

    /// The corner of the window inside its border, on the root window; nothing when the window had
    /// gone before it could be asked for.
    std::optional<Point> origin() const;

  private:
    struct Link {
        xcb_window_t window;
        EventMasks::Selection events;
        /// The request whose answer said where it was.
        std::uint32_t request = 0;
        /// The corner outside the border, inside that of the window around it.
        int x = 0;
        int y = 0;
        int width = 0;
        int height = 0;
        int border = 0;
    };

    Link *find(xcb_window_t window, std::uint32_t eventSequence);
    bool configured(const xcb_configure_notify_event_t &event, std::uint32_t sequence);
    void pushed(const xcb_gravity_notify_event_t &event, std::uint32_t sequence);

    /// From the inside to the outside.
    std::vector<Link> links_;
    bool isComplete_ = false;
};

} // namespace corvane::x11
