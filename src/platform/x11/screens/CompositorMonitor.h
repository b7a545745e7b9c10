#pragma once

#include "platform/x11/connection/XcbEvents.h"

#include <QTimer>

#include <functional>

namespace corvane::x11 {

/// Whether a compositing manager blends windows on the screen; one may start or end at any time. A
/// new one counts after half a second, because it takes its selection before it begins to blend.
/// Main thread.
class CompositorMonitor {
  public:
    /// Calls `changed` after each change. The events outlive the monitor.
    CompositorMonitor(XcbEvents &events, std::function<void()> changed);

    bool isRunning() const { return isRunning_; }

  private:
    void follow(XcbEvents &events, int selectionNotify);
    bool readIsRunning() const;
    void update();
    void setRunning(bool isRunning);

    const XcbConnection &connection_;
    std::function<void()> changed_;
    bool isRunning_;
    QTimer settling_;
    XcbEvents::Subscription subscription_;
};

} // namespace corvane::x11
