#pragma once

#include "platform/ContinuousClock.h"
#include "platform/linux/timing/NextClickDeadline.h"
#include "platform/linux/timing/TimerDescriptor.h"
#include "platform/linux/timing/WakeUpLatency.h"
#include "platform/posix/FileDescriptor.h"

#include <atomic>

namespace corvane::linux {

/// A wait on a timer descriptor and an event descriptor. Without descriptors to be had it sleeps in
/// short slices instead.
class DescriptorWait : public platform::CancellableWait {
  public:
    /// Says by `awaited` until when it waits, and is woken earlier by `lead`, as it learns. All
    /// given outlives the wait.
    DescriptorWait(platform::ContinuousClock &clock, WakeUpLatency &lead,
                   NextClickDeadline &awaited);

    using CancellableWait::waitUntil;
    void waitUntil(platform::Instant deadline, const std::function<void()> &justBefore) override;
    void cancel() override;
    bool isCancelled() const override { return isCancelled_; }

  private:
    void sleepUntil(platform::Instant instant) const;
    void waitForDescriptors() const;
    void sleepInSlices(platform::Instant deadline) const;

    platform::ContinuousClock &clock_;
    WakeUpLatency &lead_;
    NextClickDeadline &awaited_;
    const TimerDescriptor timer_;
    const posix::FileDescriptor wakeUp_;
    std::atomic<bool> isCancelled_ = false;
};

} // namespace corvane::linux
