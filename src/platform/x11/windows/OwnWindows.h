#pragma once

#include "platform/x11/connection/Atoms.h"

namespace corvane::x11 {

// Requests about windows that Qt has made for the program. They go out on Qt's connection, behind
// Qt's own requests about the same window. Main thread.

/// Has the window manager give the keyboard to a shown window, also while another program has it:
/// as a task bar does, which window managers never suspect of stealing the focus.
void activate(const Atoms &atoms, xcb_window_t window);

/// Shows a window on every workspace. To be called before it is mapped.
void showOnEveryWorkspace(const Atoms &atoms, xcb_window_t window);

} // namespace corvane::x11
