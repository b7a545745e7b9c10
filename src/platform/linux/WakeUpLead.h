#pragma once

#include "platform/ContinuousClock.h"

#include <atomic>

namespace corvane::x11 {

/// How long before its time a thread has itself woken. The system wakes it late, on every machine
/// by another amount: that amount is learnt, and what is then left is waited for awake. Any thread.
class WakeUpLead {
  public:
    /// Sleeps by `sleepUntil` and returns at the deadline, or as soon as `isOver` says so after the
    /// sleep.
    template <typename Sleep, typename Condition>
    void waitUntil(const platform::ContinuousClock &clock, platform::Instant deadline,
                   Sleep sleepUntil, Condition isOver) {
        const platform::Instant wakeUp = deadline - lead_.load();
        if (wakeUp > clock.now()) {
            sleepUntil(wakeUp);
            learn(clock.now() - wakeUp);
        }
        while (clock.now() < deadline && !isOver()) {
        }
    }

    /// How long before its time at most.
    static constexpr std::chrono::nanoseconds longest = std::chrono::microseconds(150);

  private:
    void learn(std::chrono::nanoseconds lateness);

    std::atomic<std::chrono::nanoseconds> lead_{std::chrono::microseconds(50)};
};

} // namespace corvane::x11
