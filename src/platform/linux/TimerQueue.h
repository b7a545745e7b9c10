#pragma once

#include "platform/ContinuousClock.h"
#include "platform/MainQueue.h"
#include "platform/linux/LinuxClock.h"
#include "platform/linux/TimerDescriptor.h"

#include <QSocketNotifier>

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace corvane::x11 {

/// Calls at their times, in turns of Qt's event loop. Its own timers count whole milliseconds and
/// wake up once too early as often as not. Main thread, after the application is made.
class TimerQueue {
  public:
    TimerQueue();

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
    void setDescriptor();

    const LinuxClock clock_{};
    const TimerDescriptor descriptor_;
    /// When the descriptor becomes readable.
    std::optional<platform::Instant> wakeUp_;
    /// Those to come, the next one first.
    std::vector<std::shared_ptr<Call>> calls_;
    QSocketNotifier readable_;
};

} // namespace corvane::x11
