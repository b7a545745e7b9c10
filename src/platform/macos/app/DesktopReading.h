#pragma once

#include "presentation/DesktopFacts.h"
#include "presentation/HotKey.h"

namespace corvane::macos {

/// What this desktop offers. Main thread. Not whether it takes clicks: to the system a program that
/// a terminal has started is the terminal.
DesktopFacts readDesktopFacts(const HotKey &hotKey);

} // namespace corvane::macos
