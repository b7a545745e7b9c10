#pragma once

#include "platform/ContinuousClock.h"
#include "platform/MainQueue.h"
#include "platform/linux/timing/Clock.h"
#include "platform/linux/timing/ExactTimer.h"

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace corvane::linux {

/// Calls at their times, in turns of Qt's event loop. Main thread, after the application is made.
class TimerQueue {
  public:
    /// Calls `work` after `delay`, and then again and again where there is a period. The queue
    /// outlives the timer.
    std::unique_ptr<platform::Timer> add(std::chrono::nanoseconds delay,
                                         std::optional<std::chrono::nanoseconds> period,
                                         std::function<void()> work);

  private:
    struct Call {
        platform::Instant due;
        std::optional<std::chrono::nanoseconds> period;
        std::function<void()> work;
    };
    class PendingCall;

    void insert(std::shared_ptr<Call> call);
    void remove(const std::shared_ptr<Call> &call);
    void callAllDue();
    std::shared_ptr<Call> takeFirst(platform::Instant now);
    /// To the next call.
    void setTimer();

    const Clock clock_{};
    /// Those to come, the next one first.
    std::vector<std::shared_ptr<Call>> calls_;
    ExactTimer timer_{[this] { callAllDue(); }};
};

} // namespace corvane::linux
