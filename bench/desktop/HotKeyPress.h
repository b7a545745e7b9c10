#pragma once

#include "harness/actors/Keyboard.h"

namespace corvane::bench {

/// Presses and releases the hot key; when its last key went down, as in `Clicks`.
double pressHotKey(const desktop::Keyboard &keyboard);

} // namespace corvane::bench
