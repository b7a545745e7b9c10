#pragma once

#include "platform/x11/connection/WindowProperty.h"
#include "platform/x11/connection/XcbConnection.h"
#include "platform/x11/windows/WindowAtoms.h"
#include "platform/x11/windows/WindowInfo.h"

#include <cstdint>
#include <optional>

namespace corvane::x11 {

/// The questions about a window at one moment, sent but not waited for yet.
class WindowInfoRequest {
  public:
    WindowInfoRequest(const XcbConnection &connection, const WindowAtoms &atoms,
                      xcb_window_t window);

    /// Waits for the answers; nothing when the window is gone or shows nothing. Once only.
    std::optional<WindowInfo> answer(std::optional<std::uint32_t> currentDesktop);

  private:
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
