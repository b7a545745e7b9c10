#pragma once

#include "platform/x11/connection/XcbConnection.h"

namespace corvane::x11 {

/// Whether programs can press buttons on this server (extension XTEST).
bool offersFakeInput(const XcbConnection &connection);

/// Whether the server is Xwayland, where a press reaches X programs only.
bool isInsideWayland(const XcbConnection &connection);

} // namespace corvane::x11
