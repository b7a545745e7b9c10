#pragma once

#include <chrono>
#include <functional>
#include <memory>

namespace corvane::platform {

/// A pending or repeating call. Destroying it stops it; a call already under way is finished. The
/// queue outlives it.
class Timer {
  public:
    virtual ~Timer() = default;
};

/// The main thread's queue of work, turned by the program's event loop.
class MainQueue {
  public:
    virtual ~MainQueue() = default;

    /// Runs `work` on the main thread in a later turn of the event loop, in the order posted. Any
    /// thread; never waits. Work still queued when the event loop ends is dropped.
    virtual void post(std::function<void()> work) = 0;

    /// Runs `work` once on the main thread after `delay`. Main thread.
    virtual std::unique_ptr<Timer> after(std::chrono::nanoseconds delay,
                                         std::function<void()> work) = 0;

    /// Runs `work` on the main thread every `period`, first after one period. Main thread.
    virtual std::unique_ptr<Timer> every(std::chrono::nanoseconds period,
                                         std::function<void()> work) = 0;
};

} // namespace corvane::platform
