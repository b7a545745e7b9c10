#pragma once

#include "app/Ripples.h"
#include "model/CorvaneConfig.h"
#include "support/Geometry.h"
#include "support/WeakCallbacks.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>

namespace corvane {

namespace platform {
class Platform;
}
class AnchorTracking;
class DynamicZoneRect;
class ZoneOverlayWindow;
struct SharedServices;

/// Starts and ends runs of the click engine and shows them: the count, a ripple for each click and
/// the outline of the zone, which follows an anchored window. Main thread.
class RunController {
  public:
    /// The platform and the services outlive the controller. `refresh` shows the state anew.
    RunController(platform::Platform &platform, SharedServices &shared,
                  std::function<void()> refresh);
    ~RunController();

    /// Refused, with a line in the log, in a session that cannot be clicked in and without the
    /// permission. Asks the user where an anchored window is missing.
    void startRun();

    /// Ends the run; the status changes in a later turn, when the engine has stopped.
    void stopRun();

    /// Ends a run that has lost the session it clicks in.
    void sessionChanged();

  private:
    /// What a run starts with.
    struct RunPlan {
        CorvaneConfig config;
        /// Present when the zone follows a window.
        std::shared_ptr<DynamicZoneRect> dynamicZone{};
    };

    bool mayStart();
    std::optional<RunPlan> planRun();
    bool continueAtLastPosition(const WindowAnchor &anchor);
    void followWindow(const WindowAnchor &anchor, std::shared_ptr<DynamicZoneRect> dynamicZone);
    void beginRun(const RunPlan &plan);
    void startEngine(const RunPlan &plan);
    void runProgressed(std::int64_t count, Point point);
    void setRunning(bool isRunning);
    void showZoneOverlay(const Rectangle &zone);
    std::optional<double> primaryScreenHeight() const;

    platform::Platform &platform_;
    SharedServices &shared_;
    const std::function<void()> refresh_;
    Ripples ripples_;
    std::unique_ptr<ZoneOverlayWindow> zoneOverlayWindow_;
    std::unique_ptr<AnchorTracking> anchorTrackingTask_;
    /// Distinguishes the callbacks of the present run from late ones of earlier runs.
    std::uint64_t runNumber_ = 0;
    bool isAskingToStart_ = false;
    const WeakCallbacks<RunController> weakly_{*this};
};

} // namespace corvane
