#pragma once

#include "platform/x11/connection/Atoms.h"

namespace corvane::x11 {

// Requests on the connection that Qt has to the X server. Those about a window follow Qt's own
// requests about it. Main thread, once the application exists.

/// Gives the keyboard to a shown window, also while another program has it.
void activate(const Atoms &atoms, xcb_window_t window);

/// Shows a window on every workspace. To be called before it is mapped.
void showOnEveryWorkspace(const Atoms &atoms, xcb_window_t window);

/// Deselects mouse buttons from the keyboard events (XKB StateNotify) that Qt has selected. Qt
/// makes no use of them, and each click would wake two of its threads twice.
void dropButtonReportsOfKeyboard();

} // namespace corvane::x11
