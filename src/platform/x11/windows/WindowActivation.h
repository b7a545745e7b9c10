#pragma once

class QWidget;

namespace corvane::x11 {

/// Brings a shown window to the front and gives it the keyboard, also while another program has it:
/// asks the window manager as a task bar does, which is not suspected of stealing the focus.
void activateIgnoringOthers(QWidget &window);

} // namespace corvane::x11
