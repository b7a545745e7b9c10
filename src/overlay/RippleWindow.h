#pragma once

#include "platform/OverlayWindows.h"
#include "support/Geometry.h"

#include <functional>
#include <memory>
#include <optional>

namespace corvane {

/// Acknowledges one click on screen; every click passes through. Main thread.
class RippleWindow {
  public:
    /// `clickPoint` is in global display space; the height is the primary screen's, absent without
    /// screens.
    RippleWindow(platform::OverlayWindows &windows, Point clickPoint,
                 std::optional<double> primaryHeight);

    void orderFront();
    void orderOut();

    /// Plays the ring once, then calls `completion` on the main thread.
    void animate(std::function<void()> completion);

    /// The window's frame in screen space.
    static Rectangle frameFor(Point clickPoint, std::optional<double> primaryHeight);

  private:
    std::unique_ptr<platform::NativeOverlay> native_;
};

} // namespace corvane
