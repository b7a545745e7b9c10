#pragma once

#include "platform/OverlayWindows.h"
#include "platform/x11/connection/XcbEvents.h"
#include "platform/x11/hotkey/GrabbedHotKey.h"
#include "platform/x11/hotkey/Keyboard.h"

#include <functional>
#include <memory>
#include <vector>

namespace corvane::x11 {

/// Gives overlays the keyboard focus, which no window manager does for them. Key presses go to the
/// overlay that took the focus last; Escape, which is grabbed, also while another program has the
/// focus. The keyboard as a whole is not grabbed, so that the hot key keeps working. Main thread.
class OverlayKeyboard {
  public:
    ~OverlayKeyboard() { destroyManagedWindow(); }

    OverlayKeyboard(const OverlayKeyboard &) = delete;
    OverlayKeyboard &operator=(const OverlayKeyboard &) = delete;

    using Handler = std::function<void(platform::Key)>;

    /// The events outlive the keyboard.
    explicit OverlayKeyboard(XcbEvents &events);

    /// To be called before the window is mapped, so that Escape works as soon as it can be seen.
    void prepareFor(xcb_window_t window, Handler handler);

    /// To be called once it is mapped: the server refuses the focus to others.
    void giveTo(xcb_window_t window);

    /// Gives the focus to the overlay that had it before, or to the window that had it before all
    /// overlays.
    void takeFrom(xcb_window_t window);

  private:
    struct Entry {
        xcb_window_t window;
        Handler handler;
    };

    void handle(const xcb_generic_event_t &event);
    void handle(const xcb_key_press_event_t &press);
    void grabEscape();
    void activateManagedWindow();
    void destroyManagedWindow();
    xcb_window_t focus() const;
    void setFocus(xcb_window_t window) const;

    const XcbConnection &connection_;
    const KeyboardChanges keyboardChanges_;
    std::vector<Entry> entries_;
    xcb_keycode_t escapeKey_ = 0;
    std::unique_ptr<KeyGrab> escapeGrab_;
    xcb_window_t formerFocus_ = XCB_WINDOW_NONE;
    const bool isInsideWayland_;
    /// A Wayland compositor gives the keyboard only to windows that it manages: this one has a
    /// single pixel and receives the keys for the overlays.
    xcb_window_t managedWindow_ = XCB_WINDOW_NONE;
    XcbEvents::Subscription subscription_;
};

} // namespace corvane::x11
