#pragma once

#include "platform/MainQueue.h"
#include "support/OneThread.h"
#include "support/recorder/HandTurnedClock.h"

#include <condition_variable>
#include <cstddef>
#include <deque>
#include <map>
#include <mutex>
#include <optional>

namespace corvane::testing {

/// A main queue that a test turns by hand; the thread that creates it is the main thread. Timers go
/// by the hand-turned clock and fire within a turn. Outlives its timers.
class RecordingMainQueue : public platform::MainQueue {
  public:
    explicit RecordingMainQueue(const HandTurnedClock &clock) : clock_(clock) {}

    void post(std::function<void()> work) override;
    std::unique_ptr<platform::Timer> after(std::chrono::nanoseconds delay,
                                           std::function<void()> work) override;
    std::unique_ptr<platform::Timer> every(std::chrono::nanoseconds period,
                                           std::function<void()> work) override;

    /// Runs what is queued and fires the timers that are due, each once. What is queued meanwhile
    /// stays for the next turn.
    void turn();

    /// Turns until nothing is queued and no timer is due.
    void turnUntilIdle();

    /// Turns, also for what other threads post, until the condition holds; false when it did not in
    /// time. The condition is asked between turns.
    [[nodiscard]] bool turnUntil(const std::function<bool()> &condition);

    /// What is queued now, timers not counted.
    std::size_t queuedCount() const;
    std::size_t timerCount() const { return timers_.size(); }
    /// When the next timer fires; nothing without timers.
    std::optional<platform::Instant> nextDeadline() const;

  private:
    class RecordingTimer;
    struct Appointment {
        platform::Instant deadline;
        /// Zero for a timer that fires once.
        std::chrono::nanoseconds period;
        std::function<void()> work;
    };

    std::unique_ptr<platform::Timer> schedule(std::chrono::nanoseconds delay,
                                              std::chrono::nanoseconds period,
                                              std::function<void()> work);
    void fireDueTimers();
    bool isIdle() const;

    const HandTurnedClock &clock_;
    const OneThread mainThread_{"the main queue"};
    mutable std::mutex mutex_;
    std::condition_variable posted_;
    std::deque<std::function<void()>> work_;
    /// By the order of their making. Main thread.
    std::map<int, Appointment> timers_;
    int nextTimer_ = 0;
};

} // namespace corvane::testing
