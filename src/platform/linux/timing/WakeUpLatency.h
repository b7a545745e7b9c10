#pragma once

#include "platform/ContinuousClock.h"

#include <atomic>

namespace corvane::linux {

/// How long before its time a thread has itself woken. The system wakes it late, on every machine
/// by another amount, and it may have something to find out first: how long both take is learnt,
/// and what is then left is waited for awake. Any thread.
class WakeUpLatency {
  public:
    /// Sleeps by `sleepUntil`, calls `justBefore` and returns at the deadline, or as soon as
    /// `isOver` says so after the sleep.
    template <typename Sleep, typename Preparation, typename Condition>
    void waitUntil(const platform::ContinuousClock &clock, platform::Instant deadline,
                   Sleep sleepUntil, const Preparation &justBefore, Condition isOver) {
        const platform::Instant wakeUp = deadline - lead_.load();
        const bool isEarly = wakeUp > clock.now();
        if (isEarly) {
            sleepUntil(wakeUp);
        }
        if (isOver()) {
            return;
        }
        justBefore();
        if (isEarly) {
            learn(clock.now() - wakeUp);
        }
        while (clock.now() < deadline && !isOver()) {
        }
    }

    /// How long before its time at most.
    static constexpr std::chrono::nanoseconds longest = std::chrono::microseconds(600);

  private:
    void learn(std::chrono::nanoseconds taken);

    std::atomic<std::chrono::nanoseconds> lead_{std::chrono::microseconds(50)};
    /// The first wait shows about how long it takes; the steps from there become smaller.
    std::atomic<bool> hasLearnt_ = false;
    std::atomic<std::chrono::nanoseconds> step_{std::chrono::microseconds(16)};
};

} // namespace corvane::linux
