#pragma once

#include "model/CorvaneConfig.h"
#include "platform/ContinuousClock.h"
#include "platform/MouseEvents.h"
#include "services/ClickBacklog.h"
#include "services/ClickCount.h"
#include "services/DynamicZoneRect.h"

#include <atomic>
#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <thread>

namespace corvane {

/// What a run is started with, beside its configuration.
struct ClickRunConnections {
    /// Present when the zone follows a window.
    std::shared_ptr<DynamicZoneRect> liveZone{};
    /// Called on the run's thread with the running count and the click's place in global display
    /// space.
    std::function<void(std::int64_t count, Point point)> onClick;
    /// Called on the run's thread when the run ends by itself.
    std::function<void()> onFinish;
    /// Present when the run is not to get ahead of the user interface.
    std::shared_ptr<const ClickBacklog> backlog{};
};

/// One click loop with its private copy of what it needs, on a thread of its own.
class ClickRun {
  public:
    /// The mouse and the clock outlive the run.
    ClickRun(const CorvaneConfig &config, ClickRunConnections connections,
             platform::MouseEvents &mouseEvents, platform::ContinuousClock &clock);
    /// Awaits its end; cancel it before.
    ~ClickRun();
    ClickRun(const ClickRun &) = delete;
    ClickRun &operator=(const ClickRun &) = delete;

    /// False when the system has no thread for it.
    bool begin();

    /// Once this returns the run presses no button any more; one that is down is still released.
    /// Any thread.
    void cancel();

    bool hasEnded() const { return hasEnded_; }

  private:
    void run();
    void clickLoop();
    std::optional<Point> awaitReadyMouse(platform::MouseSession &mouse, platform::Instant due);
    bool isBacklogFull() const;
    bool isInsideZone(Point position) const;
    bool click(platform::MouseSession &mouse, Point position);
    bool isLimitReached() const { return limit_ >= 1 && count_.value() >= limit_; }
    std::string countText() const;

    const ClickMode mode_;
    const double interval_;
    const std::int64_t limit_;
    const std::optional<CodableRect> fixedZone_;
    const ClickRunConnections connections_;
    platform::MouseEvents &mouseEvents_;
    platform::ContinuousClock &clock_;
    const std::unique_ptr<platform::CancellableWait> wait_;
    /// Held while a button is pressed.
    std::mutex pressing_;
    ClickCount count_;
    std::atomic<bool> hasEnded_ = false;
    std::thread thread_;
};

} // namespace corvane
