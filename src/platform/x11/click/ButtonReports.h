#pragma once

namespace corvane::x11 {

/// Deselects mouse buttons from the keyboard events (XKB StateNotify) that Qt has selected. Qt
/// makes no use of them, and each click would wake two of its threads twice. Main thread, once the
/// application exists.
void dropButtonReportsOfKeyboard();

} // namespace corvane::x11
