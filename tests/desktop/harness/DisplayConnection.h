#pragma once

#include "platform/x11/connection/Xcb.h"

#include <xcb/xcb.h>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvane::desktop {

/// A test's own connection to an X server.
class DisplayConnection {
  public:
    /// Throws when the server cannot be reached.
    explicit DisplayConnection(const std::string &display);

    xcb_connection_t *get() const { return connection_.get(); }
    xcb_window_t root() const { return root_; }
    const xcb_screen_t &screen() const { return *screen_; }

    /// Sends everything and waits until the server has carried it out.
    void synchronize() const;

    xcb_atom_t atom(std::string_view name) const;

    /// The owner of a selection; XCB_WINDOW_NONE without one.
    xcb_window_t selectionOwner(std::string_view name) const;

    /// Makes a window that is never shown the owner of a selection.
    void takeSelection(std::string_view name) const;

    /// The window that has the keyboard.
    xcb_window_t focus() const;

    /// Whether the window has a property of that name, of whatever kind.
    bool hasProperty(xcb_window_t window, std::string_view name) const;

    /// The values of a 32-bit property; none without one.
    std::vector<std::uint32_t> properties(xcb_window_t window, std::string_view name) const;

    /// The first value of a 32-bit property.
    std::optional<std::uint32_t> property(xcb_window_t window, std::string_view name) const;

    /// Sends the window manager a message about the window, with up to five values.
    void askWindowManager(xcb_window_t window, std::string_view message,
                          const std::vector<std::uint32_t> &values) const;

  private:
    x11::XcbHandle connection_;
    const xcb_screen_t *screen_ = nullptr;
    xcb_window_t root_ = XCB_WINDOW_NONE;
};

} // namespace corvane::desktop
