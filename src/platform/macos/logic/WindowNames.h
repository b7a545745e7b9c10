#pragma once

#include "platform/WindowList.h"

#include <cstdint>
#include <vector>

namespace corvane::platform {
class Accessibility;
}

namespace corvane::macos {

/// Gives ordinary windows without a name the title that the Accessibility interface has for a
/// window of the same process in the same place: since macOS 10.15 the window list names other
/// programs' windows only to programs that may record the screen. Leaves the own process alone,
/// and everything where the permission is missing. Main thread.
void addMissingNames(std::vector<platform::WindowListEntry> &windows,
                     platform::Accessibility &accessibility, std::int32_t ownProcessIdentifier);

} // namespace corvane::macos
