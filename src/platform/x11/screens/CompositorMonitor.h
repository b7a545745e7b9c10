#pragma once

#include "platform/x11/connection/XcbEvents.h"

#include <QTimer>

#include <functional>

namespace corvane::x11 {

/// Whether a compositing manager blends windows on the screen; it may come and go at any time.
/// One that comes is believed after a moment, as it announces itself before it begins. Main thread.
class CompositorMonitor {
  public:
    /// Calls `changed` after each change. The events outlive the compositor.
    CompositorMonitor(XcbEvents &events, std::function<void()> changed);

    bool isRunning() const { return isRunning_; }

  private:
    void follow(XcbEvents &events);
    bool readIsRunning() const;
    void update();
    void setRunning(bool isRunning);

    const XcbConnection &connection_;
    std::function<void()> changed_;
    /// Owned by the compositing manager of this X screen.
    xcb_atom_t selection_;
    bool isRunning_;
    QTimer settling_;
    XcbEvents::Subscription subscription_;
};

} // namespace corvane::x11
