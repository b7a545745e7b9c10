#pragma once

#include "platform/ContinuousClock.h"

#include <atomic>

namespace corvane::linux {

/// Learns how late the system wakes a thread, which differs from machine to machine, and makes
/// waits exact by waking that much earlier and waiting actively for the rest. Any thread.
class WakeUpLatency {
  public:
    /// Sleeps by `sleepUntil`, calls `justBefore` and returns at the deadline, or once `isOver`
    /// returns true after the sleep. The time that `justBefore` takes is learnt too.
    template <typename Sleep, typename Preparation, typename Condition>
    void waitUntil(const platform::ContinuousClock &clock, platform::Instant deadline,
                   Sleep sleepUntil, const Preparation &justBefore, Condition isOver) {
        const platform::Instant wakeUp = deadline - latency_.load();
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

    /// Bounds the processor time that active waiting costs.
    static constexpr std::chrono::nanoseconds longest = std::chrono::microseconds(600);

  private:
    void learn(std::chrono::nanoseconds taken);

    std::atomic<std::chrono::nanoseconds> latency_{std::chrono::microseconds(50)};
    std::atomic<bool> hasLearnt_ = false;
    std::atomic<std::chrono::nanoseconds> step_{std::chrono::microseconds(16)};
};

} // namespace corvane::linux
