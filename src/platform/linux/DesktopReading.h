#pragma once

#include "presentation/DesktopFacts.h"
#include "presentation/HotKey.h"

namespace corvane::linux {

/// What this desktop offers, asked of the display that DISPLAY names, of the session bus and of the
/// environment. Main thread; needs Qt's core application.
DesktopFacts readDesktopFacts(const HotKey &hotKey);

/// Whether the environment speaks of a Wayland session.
bool isWaylandSession();

} // namespace corvane::linux
