#pragma once

#include "platform/x11/connection/XcbConnection.h"

namespace corvane::x11 {

/// Whether the server takes button presses from programs.
bool offersFakeInput(const XcbConnection &connection);

/// Whether the server only carries old programs into a Wayland session, where what it is told to
/// press stays among those programs.
bool isInsideWayland(const XcbConnection &connection);

} // namespace corvane::x11
