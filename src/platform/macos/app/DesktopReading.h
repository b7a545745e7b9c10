#pragma once

#include "presentation/DesktopFacts.h"

namespace corvane::macos {

/// What this desktop offers. Main thread. Not whether it takes clicks: to the system a program that
/// a terminal has started is the terminal.
DesktopFacts readDesktopFacts();

} // namespace corvane::macos
