#pragma once

#include "DisplayConnection.h"
#include "Settings.h"
#include "VirtualDesktop.h"

#include <map>

namespace corvane::desktop {

/// Another program that takes the screen, the pointer and the keyboard for itself, as far as it is
/// told to. Each has one window.
class ScreenTaker {
  public:
    explicit ScreenTaker(const VirtualDesktop &desktop);

    /// Opens the window; an unmanaged one keeps the window manager out.
    void openOver(const Area &area, bool isUnmanaged);
    void openOverAll(bool isUnmanaged);

    /// Asks the window manager for it; false when it does not come.
    bool goFullscreen();

    /// Puts the window below all others.
    void lower();

    /// False when another program does not give them up.
    bool grabKeyboardAndPointer();

    /// Gives up what it has grabbed too.
    void close();

    /// How many events of that type have come so far.
    int seen(int type);

  private:
    bool grabKeyboard();
    bool grabPointer();

    DisplayConnection connection_;
    const xcb_window_t window_;
    std::map<int, int> seen_;
};

} // namespace corvane::desktop
