#pragma once

#include "platform/x11/connection/XcbConnection.h"
#include "platform/x11/windows/WindowAtoms.h"
#include "platform/x11/windows/WindowInfo.h"

#include <optional>
#include <span>
#include <vector>

namespace corvane::x11 {

/// Reads many windows at once: everything is asked before the first answer is waited for. Windows
/// that are gone are left out of the results. Main thread.
class WindowReader {
  public:
    /// The connection outlives the reader.
    explicit WindowReader(const XcbConnection &connection);

    const WindowAtoms &atoms() const { return atoms_; }

    /// The windows that window managers and users know, front-most first.
    std::vector<xcb_window_t> windows() const;

    std::vector<WindowOwner> owners(std::span<const xcb_window_t> windows) const;
    std::vector<WindowInfo> facts(std::span<const xcb_window_t> windows) const;

  private:
    bool isManaged() const;
    std::vector<xcb_window_t> topLevelWindows() const;

    const XcbConnection &connection_;
    const WindowAtoms atoms_;
    const bool knowsClients_;
};

} // namespace corvane::x11
