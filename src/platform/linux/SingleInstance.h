#pragma once

#include "platform/linux/XcbEvents.h"

#include <functional>
#include <memory>

namespace corvane::x11 {

/// The right to be the one instance of the program on this display. Main thread.
class SingleInstance {
  public:
    /// Null when another instance has the right; that one is told of this start. `startedAgain` is
    /// called whenever a later instance does the same to this one. The events outlive the right.
    static std::unique_ptr<SingleInstance> claim(XcbEvents &events,
                                                 std::function<void()> startedAgain);

    ~SingleInstance();

    SingleInstance(const SingleInstance &) = delete;
    SingleInstance &operator=(const SingleInstance &) = delete;

  private:
    SingleInstance(XcbEvents &events, std::function<void()> startedAgain);

    bool claimSelection();
    void tellOwner(xcb_window_t owner) const;
    void handle(const xcb_generic_event_t &event);

    XcbEvents &events_;
    const XcbConnection &connection_;
    const std::function<void()> startedAgain_;
    const xcb_atom_t selection_;
    const xcb_atom_t startedAgainMessage_;
    const xcb_window_t window_;
    XcbEvents::Subscription subscription_;
};

} // namespace corvane::x11
