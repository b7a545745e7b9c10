#pragma once

namespace corvane::x11 {

/// Qt hears from the keyboard extension of every mouse button that goes down or up anywhere, and
/// makes nothing of it: it would wake up twice for each click. This ends it. Main thread, after the
/// application is made.
void dropButtonReportsOfKeyboard();

} // namespace corvane::x11
