#pragma once

#include "model/WindowAnchor.h"
#include "support/Geometry.h"

#include <functional>
#include <memory>

namespace corvane {

namespace platform {
class MainQueue;
class Timer;
} // namespace platform
class DynamicZoneRect;
class WindowResolver;

/// Keeps an anchored zone on its window, pass after pass, until destroyed. Main thread.
class AnchorTracking {
  public:
    /// The first pass comes after a pause. Each pass that finds the window writes `dynamicZone` and
    /// then calls `onMoved` with the zone in global display space; one that does not changes
    /// nothing. `onMoved` must not destroy the tracking.
    AnchorTracking(platform::MainQueue &mainQueue, const WindowResolver &resolver,
                   WindowAnchor anchor, std::shared_ptr<DynamicZoneRect> dynamicZone,
                   std::function<void(const Rectangle &zone)> onMoved);
    ~AnchorTracking();

    AnchorTracking(const AnchorTracking &) = delete;
    AnchorTracking &operator=(const AnchorTracking &) = delete;

  private:
    void scheduleNextPass();
    void pass();

    platform::MainQueue &mainQueue_;
    const WindowResolver &resolver_;
    const WindowAnchor anchor_;
    const std::shared_ptr<DynamicZoneRect> dynamicZone_;
    const std::function<void(const Rectangle &zone)> onMoved_;
    std::unique_ptr<platform::Timer> timer_;
};

} // namespace corvane
