#pragma once

#include "Samples.h"
#include "harness/Settings.h"
#include "harness/servers/VirtualDesktop.h"

#include <xcb/xcb.h>

#include <chrono>
#include <deque>

namespace corvane::bench {

/// Moves a window of another program to and fro, a hundred times a second, and notes how long the
/// outline of its zone takes to follow.
class MovingWindow {
  public:
    /// `zone` is relative to the frame of the window, and on screen.
    MovingWindow(const desktop::VirtualDesktop &desktop, xcb_window_t window,
                 const desktop::Area &zone);

    void moveFor(std::chrono::seconds time);

    /// From each place the frame went to until the outline was there or had gone beyond, in
    /// milliseconds.
    const Samples &lags() const { return lags_; }

  private:
    using Clock = std::chrono::steady_clock;

    /// A place of the frame at which the outline has not been seen yet.
    struct Place {
        int x;
        Clock::time_point reached;
    };

    void step();
    void listenUntil(Clock::time_point time);
    void handle(const xcb_configure_notify_event_t &event);
    void outlineMoved(int frameX);

    desktop::DisplayConnection connection_;
    xcb_window_t window_;
    xcb_window_t frame_;
    xcb_window_t outline_;
    int offset_;
    int steps_ = 0;
    std::deque<Place> places_;
    Samples lags_;
};

} // namespace corvane::bench
