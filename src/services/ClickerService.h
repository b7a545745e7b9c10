#pragma once

#include "model/CorvaneConfig.h"
#include "services/DynamicZoneRect.h"
#include "support/Geometry.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <vector>

namespace corvane {

namespace platform {
class ContinuousClock;
class MouseEvents;
} // namespace platform
class ClickBacklog;
class ClickRun;

/// Makes the clicks: one loop on a thread of its own for each run. Operations are done one at a
/// time.
class ClickerService {
  public:
    /// Called on the run's thread with the running count and the click's place in global display
    /// space.
    using ClickCallback = std::function<void(std::int64_t count, Point point)>;
    /// Called when the limit is reached or the run fails, on the run's thread, or when the system
    /// has no thread for the run, from `start`. Never after the run has noticed its cancellation.
    using FinishCallback = std::function<void()>;

    ClickerService(platform::MouseEvents &mouseEvents, platform::ContinuousClock &clock);
    /// Ends and awaits every run.
    ~ClickerService();
    ClickerService(const ClickerService &) = delete;
    ClickerService &operator=(const ClickerService &) = delete;

    /// Cancels a run under way and begins a new one with a copy of `config`; waits for no click.
    /// With a backlog, the run makes no click while that is full.
    void start(const CorvaneConfig &config, std::shared_ptr<DynamicZoneRect> dynamicZone,
               ClickCallback onClick, const FinishCallback &onFinish,
               std::shared_ptr<const ClickBacklog> backlog = nullptr);

    /// Cancels the run under way, if any: no button is pressed once this returns, and the run ends
    /// by itself within the click it is making.
    void stop();

    /// Waits until every cancelled or finished run has ended its thread.
    void awaitEnd();

  private:
    void cancelClickTask();

    platform::MouseEvents &mouseEvents_;
    platform::ContinuousClock &clock_;
    std::mutex mutex_;
    std::unique_ptr<ClickRun> clickTask_;
    std::vector<std::unique_ptr<ClickRun>> endingRuns_;
};

} // namespace corvane
