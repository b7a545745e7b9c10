#pragma once

#include "platform/ContinuousClock.h"

#include <condition_variable>
#include <cstddef>
#include <functional>
#include <list>
#include <mutex>
#include <vector>

namespace corvane::testing {

/// A clock that stands still until a test turns it. Threads that wait on it block until it is
/// turned to their deadline, so a test decides when each of them goes on. What a wait calls just
/// before its deadline sees the clock stand just before it. Any thread.
class HandTurnedClock : public platform::ContinuousClock {
  public:
    using Duration = std::chrono::nanoseconds;

    platform::Instant now() const override;

    /// Turns the clock by `duration` itself, unless sleeps block.
    void sleepFor(Duration duration) override;

    std::unique_ptr<platform::CancellableWait> makeWait() override;

    /// Turns the clock and lets every thread go on whose deadline is reached. When it returns,
    /// those threads no longer count as blocked.
    void advance(Duration duration);
    /// The same up to a moment; one that has passed changes nothing.
    void advanceTo(platform::Instant moment);

    /// Whether sleeps block until the clock is turned. Turning this off ends the sleeps under way.
    void setSleepsBlock(bool sleepsBlock);

    /// Waits until at least that many threads are blocked; false when that did not happen in time.
    [[nodiscard]] bool awaitBlocked(std::size_t threads = 1) const;

    /// Waits until a wait has been cancelled; false when that did not happen in time.
    [[nodiscard]] bool awaitCancellation() const;

    /// How many threads are blocked, in a wait or a blocking sleep.
    std::size_t blockedCount() const;

    /// Until when the blocked threads wait, in the order they began to.
    std::vector<platform::Instant> deadlines() const;

    /// The duration of every sleep so far.
    std::vector<Duration> sleeps() const;

  private:
    class Wait;
    struct Sleeper {
        platform::Instant deadline;
        /// Null for a sleep.
        const Wait *wait;
        /// Nothing for a sleep.
        std::function<void()> justBefore;
        bool isDue = false;
        bool isReleased = false;
    };

    void block(std::unique_lock<std::mutex> &lock, const Sleeper &sleeper);
    void turnTo(std::unique_lock<std::mutex> &lock, platform::Instant moment);
    template <typename Condition>
    void release(Condition condition);
    std::size_t countBlocked() const;

    mutable std::mutex mutex_;
    mutable std::condition_variable changed_;
    platform::Instant now_ = std::chrono::hours(1);
    bool sleepsBlock_ = false;
    bool hasCancelledWait_ = false;
    std::list<Sleeper> sleepers_;
    std::vector<Duration> sleeps_;
};

} // namespace corvane::testing
