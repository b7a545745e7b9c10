#pragma once

#include "platform/x11/connection/XcbEvents.h"

#include <QTimer>

#include <cstdint>
#include <optional>
#include <vector>

namespace corvane::x11 {

/// The order of the overlays on the screen: higher levels above lower ones, and all of them above
/// the windows of other programs, also of those that are raised later. Main thread.
class OverlayStack {
  public:
    /// While it exists, nothing is heard of what happens in the stack: a program that changes its
    /// own windows would else be woken for each change. What others do in that moment shows with
    /// their next change.
    class Silence {
      public:
        explicit Silence(OverlayStack &stack);
        ~Silence();
        Silence(const Silence &) = delete;
        Silence &operator=(const Silence &) = delete;

      private:
        OverlayStack &stack_;
    };

    /// The events outlive the stack.
    explicit OverlayStack(XcbEvents &events);

    /// Puts a window above those of its level. One that stays is kept above other programs' windows
    /// too; for one that is gone in a moment that would not be worth its while.
    void insert(xcb_window_t window, int level, bool stays);
    void remove(xcb_window_t window);

  private:
    struct Entry {
        xcb_window_t window;
        int level;
        bool stays;
    };
    using Entries = std::vector<Entry>;

    Entries::iterator find(xcb_window_t window);
    bool contains(xcb_window_t window) { return find(window) != entries_.end(); }
    void followRoot();
    void putInPlace(Entries::const_iterator entry) const;
    void handle(const xcb_generic_event_t &event);
    void restack();
    void rest();
    void listenAgain();

    XcbEvents &events_;
    /// From the lowest to the highest.
    Entries entries_;
    /// Held while there are windows that stay, except in silence and while resting.
    std::optional<EventMasks::Selection> rootEvents_;
    int silences_ = 0;
    XcbEvents::Subscription subscription_;
    QTimer restTimer_;
};

} // namespace corvane::x11
