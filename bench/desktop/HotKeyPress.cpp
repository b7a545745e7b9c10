#include "HotKeyPress.h"

#include "Clicks.h"

#include <X11/keysym.h>

namespace corvane::bench {

double pressHotKey(const desktop::Keyboard &keyboard) {
    keyboard.press(keyboard.keyOf(XK_Super_L));
    keyboard.press(keyboard.keyOf(XK_Shift_L));
    const double pressed = monotonicMilliseconds();
    keyboard.press(desktop::Keyboard::physicalY);
    keyboard.releaseHotKey();
    return pressed;
}

} // namespace corvane::bench
