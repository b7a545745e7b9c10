#pragma once

#include "platform/OverlayWindows.h"
#include "platform/x11/connection/XcbEvents.h"
#include "platform/x11/hotkey/KeyGrab.h"
#include "platform/x11/hotkey/KeyboardChanges.h"

#include <functional>
#include <memory>
#include <vector>

namespace corvane::x11 {

/// Gives overlays the keyboard, which no window manager does for them. The keys go to the overlay
/// that asked last; Escape also when another program has taken the keyboard meanwhile. The keyboard
/// as a whole is not grabbed, so that hot keys go on working. Main thread.
class OverlayKeyboard {
  public:
    using Handler = std::function<void(platform::Key)>;

    /// The events outlive the keyboard.
    explicit OverlayKeyboard(XcbEvents &events);

    /// Before a window is mapped, so that Escape is heard from the moment the user sees it.
    void prepareFor(xcb_window_t window, Handler handler);

    /// Once it is mapped.
    void giveTo(xcb_window_t window) const { setFocus(window); }

    /// Gives the keyboard to the overlay that had it before, or back to the window that had it
    /// before all overlays.
    void takeFrom(xcb_window_t window);

  private:
    struct Entry {
        xcb_window_t window;
        Handler handler;
    };

    void handle(const xcb_generic_event_t &event);
    void handle(const xcb_key_press_event_t &press);
    void grabEscape();
    xcb_window_t focus() const;
    void setFocus(xcb_window_t window) const;

    const XcbConnection &connection_;
    const KeyboardChanges keyboardChanges_;
    std::vector<Entry> entries_;
    xcb_keycode_t escapeKey_ = 0;
    std::unique_ptr<KeyGrab> escapeGrab_;
    xcb_window_t formerFocus_ = XCB_WINDOW_NONE;
    XcbEvents::Subscription subscription_;
};

} // namespace corvane::x11
