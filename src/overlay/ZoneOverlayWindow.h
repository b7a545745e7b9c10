#pragma once

#include "platform/OverlayWindows.h"
#include "support/Geometry.h"

#include <memory>
#include <optional>

namespace corvane {

/// Shows the zone while a run in zone mode lasts; every click passes through. Main thread.
class ZoneOverlayWindow {
  public:
    /// `zone` is in global display space; the height is the primary screen's, absent without
    /// screens.
    ZoneOverlayWindow(platform::OverlayWindows &windows, const Rectangle &zone,
                      std::optional<double> primaryHeight);

    void orderFront();
    void orderOut();

    /// Lies over a moved zone from now on.
    void moveTo(const Rectangle &zone, double primaryHeight);

    /// The window's frame in screen space for a zone in global display space: the zone and the
    /// strip above it that holds the badge.
    static Rectangle frameFor(const Rectangle &zone, std::optional<double> primaryHeight);

  private:
    Rectangle frame_;
    std::unique_ptr<platform::NativeOverlay> native_;
};

} // namespace corvane
