#pragma once

#include "platform/HotKeys.h"
#include "presentation/DesktopFacts.h"

namespace corvane::macos {

/// What this desktop offers. Main thread. The permission is that of whoever started the process,
/// such as a terminal.
DesktopFacts readDesktopFacts(const platform::HotKey &hotKey);

} // namespace corvane::macos
