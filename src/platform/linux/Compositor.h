#pragma once

#include "platform/wayland/connection/Connection.h"

#include <memory>

namespace corvane::linux {

/// A connection to the Wayland compositor, if it lets this program click and show overlays; null
/// else. On KDE Plasma the first time may take seconds.
std::unique_ptr<wayland::Connection> connectToCompositor();

} // namespace corvane::linux
