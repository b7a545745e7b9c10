#pragma once

#include <Carbon/Carbon.h>

namespace corvane::macos {

/// The hot keys of this program.
inline constexpr EventHotKeyID startStopHotKey{.signature = 'CRVN', .id = 1};
inline constexpr EventHotKeyID escapeHotKey{.signature = 'CRVN', .id = 2};

/// Whether the event is a press of that hot key: every handler receives those of all of them.
bool isPressOf(const EventHotKeyID &hotKey, EventRef event);

} // namespace corvane::macos
