#pragma once

#include "platform/linux/WindowAtoms.h"
#include "platform/linux/WindowFacts.h"
#include "platform/linux/WindowProperty.h"
#include "platform/linux/XcbConnection.h"

#include <cstdint>
#include <optional>
#include <string>

namespace corvane::x11 {

/// The questions about a window at one moment, sent but not waited for yet.
class WindowFactsRequest {
  public:
    WindowFactsRequest(const XcbConnection &connection, const WindowAtoms &atoms,
                       xcb_window_t window);

    /// Waits for the answers; nothing when the window is gone or shows nothing. Once only.
    std::optional<WindowFacts> answer(std::optional<std::uint32_t> currentDesktop);

  private:
    std::optional<Rectangle> readBounds();
    bool isMinimised();
    bool isElsewhere(std::optional<std::uint32_t> currentDesktop);
    xcb_atom_t readType();
    std::int64_t layerOf(xcb_atom_t type, bool isUnmanaged) const;
    std::optional<std::string> readTitle();

    const XcbConnection &connection_;
    const WindowAtoms &atoms_;
    const xcb_window_t window_;
    xcb_get_window_attributes_cookie_t attributes_;
    xcb_get_geometry_cookie_t geometry_;
    xcb_translate_coordinates_cookie_t position_;
    WindowProperty type_;
    WindowProperty state_;
    WindowProperty desktop_;
    WindowProperty managedState_;
    WindowProperty frameExtents_;
    WindowProperty clientFrameExtents_;
    WindowProperty name_;
    WindowProperty oldName_;
};

} // namespace corvane::x11
