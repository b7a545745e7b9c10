#pragma once

#include "presentation/DesktopFacts.h"
#include "presentation/HotKey.h"

namespace corvane::linux {

/// What this desktop offers, read from the display that DISPLAY names, the session bus and the
/// environment. Main thread; needs Qt's core application.
DesktopFacts readDesktopFacts(const HotKey &hotKey);

/// Whether the environment variables name a Wayland session.
bool isWaylandSession();

} // namespace corvane::linux
