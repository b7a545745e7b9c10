#pragma once

#include "DisplayConnection.h"

#include <cstdint>
#include <string_view>

namespace corvane::desktop {

/// Requests from the window manager what a taskbar and a switcher of workspaces do. Every call
/// returns when it is done and throws when the window manager does not do it.
class Pager {
  public:
    /// The connection outlives it.
    explicit Pager(const DisplayConnection &connection) : connection_(connection) {}

    void minimise(xcb_window_t window) const;
    /// Brings the window back and to the front.
    void activate(xcb_window_t window) const;

    /// Workspaces are counted from 0; there are at least two.
    void moveToWorkspace(xcb_window_t window, std::uint32_t workspace) const;
    void showWorkspace(std::uint32_t workspace) const;

  private:
    void awaitProperty(xcb_window_t window, std::string_view name, std::uint32_t value) const;
    void ensureTwoWorkspaces() const;

    const DisplayConnection &connection_;
};

} // namespace corvane::desktop
