#pragma once

#include "platform/x11/connection/XcbEvents.h"

#include <QTimer>

#include <optional>
#include <vector>

namespace corvane::x11 {

/// Keeps the overlays in the order of their levels and above the windows of other programs, also
/// above those that are raised later. Main thread.
class OverlayStack {
  public:
    /// Deselects the root window's events while it exists, so that changes of this program's own
    /// windows do not wake it: with 50 clicks a second in a zone the main thread wakes 2.7 times a
    /// click with it and 5.4 times without. A change that another program makes meanwhile is
    /// noticed with the next one.
    class EventMaskGuard {
      public:
        explicit EventMaskGuard(OverlayStack &stack);
        ~EventMaskGuard();
        EventMaskGuard(const EventMaskGuard &) = delete;
        EventMaskGuard &operator=(const EventMaskGuard &) = delete;

      private:
        OverlayStack &stack_;
    };

    /// The events outlive the stack.
    explicit OverlayStack(XcbEvents &events);

    /// Puts a window above those of its level, again where it is in the stack already. While a
    /// window is there that `staysOnTop`, the stack follows changes by other programs; a window
    /// that is shown for a moment is not worth the wake-ups.
    void insert(xcb_window_t window, int level, bool staysOnTop);
    void remove(xcb_window_t window);
    /// Puts a window in the place of one that is in the stack.
    void replace(xcb_window_t window, xcb_window_t successor);

  private:
    struct Entry {
        xcb_window_t window;
        int level;
        bool staysOnTop;
    };
    using Entries = std::vector<Entry>;

    bool contains(xcb_window_t window) const;
    void erase(xcb_window_t window);
    /// Selects or deselects the root window's events, as the members say.
    void updateEventMask();
    void stackBelowNext(Entries::const_iterator entry) const;
    void handle(const xcb_generic_event_t &event);
    void restack();
    /// Ignores further changes for a moment, then restores the order once.
    void debounce();

    XcbEvents &events_;
    /// From the lowest to the highest.
    Entries entries_;
    std::optional<EventMasks::Selection> rootEvents_;
    int guards_ = 0;
    XcbEvents::Subscription subscription_;
    QTimer debounceTimer_;
};

} // namespace corvane::x11
