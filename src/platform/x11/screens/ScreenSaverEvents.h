#pragma once

#include "platform/x11/connection/XcbEvents.h"

#include <cstdint>
#include <functional>

namespace corvane::x11 {

/// The X server's own screen saver. Main thread.
class ScreenSaverEvents {
  public:
    /// Calls `changed` when it comes on or goes off. The events outlive it.
    ScreenSaverEvents(XcbEvents &events, std::function<void(bool isOn)> changed);

  private:
    void handle(const xcb_generic_event_t &event) const;

    const std::function<void(bool isOn)> changed_;
    /// What the server calls the event; 0 where it has no screen saver.
    int eventType_ = 0;
    XcbEvents::Subscription subscription_;
};

} // namespace corvane::x11
