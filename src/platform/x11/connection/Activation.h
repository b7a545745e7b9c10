#pragma once

#include "platform/x11/connection/Atoms.h"

namespace corvane::x11 {

/// Gives the keyboard to a shown window, also while another program has it. Sent as from a task
/// bar, because window managers refuse the focus to programs that activate themselves.
void activate(xcb_connection_t *connection, const Atoms &atoms, xcb_window_t window);

} // namespace corvane::x11
