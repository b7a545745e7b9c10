#pragma once

#include <QtGui/qwindowdefs.h>

#include <functional>

class QWidget;

namespace corvane::qt {

/// What the window system does for the program's own windows beyond what the toolkit offers. Main
/// thread.
struct OwnWindows {
    /// Gives the keyboard to a shown window, also while another program has it.
    std::function<void(WId window)> activate = [](WId) {};
    /// Shows a window on every workspace; to be called before it is shown.
    std::function<void(WId window)> showOnEveryWorkspace = [](WId) {};

    /// Raises a shown window and gives it the keyboard.
    void bringToFront(QWidget &window) const;
};

} // namespace corvane::qt
