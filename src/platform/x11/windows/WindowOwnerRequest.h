#pragma once

#include "platform/x11/connection/WindowProperty.h"
#include "platform/x11/connection/XcbConnection.h"
#include "platform/x11/windows/WindowAtoms.h"
#include "platform/x11/windows/WindowInfo.h"

#include <xcb/res.h>

#include <optional>

namespace corvane::x11 {

/// The question whose window one is, sent but not waited for yet.
class WindowOwnerRequest {
  public:
    /// `asksServer`: whether the server knows the processes of its clients.
    WindowOwnerRequest(const XcbConnection &connection, const WindowAtoms &atoms,
                       xcb_window_t window, bool asksServer);

    /// Waits for the answers. Once only.
    WindowOwner answer();

  private:
    std::optional<std::uint32_t> processOfClient() const;

    const XcbConnection &connection_;
    const xcb_window_t window_;
    WindowProperty processIdentifier_;
    WindowProperty windowClass_;
    std::optional<xcb_res_query_client_ids_cookie_t> client_;
};

} // namespace corvane::x11
