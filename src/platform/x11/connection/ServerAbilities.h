#pragma once

#include "platform/x11/connection/XcbConnection.h"

namespace corvane::x11 {

/// Whether programs can press buttons on this server (extension XTEST).
bool offersFakeInput(const XcbConnection &connection);

/// Whether the server is Xwayland, where a press reaches X programs only.
bool isInsideWayland(const XcbConnection &connection);

/// Whether the compositor around the server may forget that a window lets the mouse through, as
/// soon as the window changes. Xwayland 24 and later pass the windows' input shapes on.
bool losesInputShapes(const XcbConnection &connection);

} // namespace corvane::x11
