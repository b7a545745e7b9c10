#pragma once

#include <chrono>
#include <functional>
#include <memory>

namespace corvane::platform {

/// Time since a fixed moment in the past.
using Instant = std::chrono::nanoseconds;

/// A wait that another thread can end, and the flag that says so.
class CancellableWait {
  public:
    virtual ~CancellableWait() = default;

    /// Blocks the calling thread until `deadline`, or until cancelled if that comes first.
    /// `justBefore` prefetches what is needed at the deadline. It runs once, on the same thread,
    /// less than a millisecond before the deadline or as soon after it as the thread is woken; not
    /// once cancelled.
    virtual void waitUntil(Instant deadline, const std::function<void()> &justBefore) = 0;

    void waitUntil(Instant deadline) {
        waitUntil(deadline, [] {});
    }

    /// Ends this and every later wait at once. Any thread; cannot be taken back.
    virtual void cancel() = 0;

    /// Whether `cancel` has been called. Any thread.
    virtual bool isCancelled() const = 0;
};

/// A monotonic clock that goes on counting while the system sleeps. Any thread.
class ContinuousClock {
  public:
    virtual ~ContinuousClock() = default;

    virtual Instant now() const = 0;

    /// Blocks the calling thread for `duration`; nothing ends it early.
    virtual void sleepFor(std::chrono::nanoseconds duration) = 0;

    /// A fresh wait on this clock; never null. The clock outlives it.
    virtual std::unique_ptr<CancellableWait> makeWait() = 0;
};

} // namespace corvane::platform
