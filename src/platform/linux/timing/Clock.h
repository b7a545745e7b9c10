#pragma once

#include "platform/ContinuousClock.h"
#include "platform/linux/timing/WakeUpLatency.h"
#include "platform/posix/FileDescriptor.h"

#include <atomic>
#include <memory>

namespace corvane::linux {

/// When the next press or release is due, on the boot-time clock; in the past while none is.
/// Written by the click thread, read by the main thread.
using NextClickDeadline = std::atomic<platform::Instant>;

/// The system's boot-time clock. Sleeps and waits on it end at their deadline to within some
/// microseconds, by waking early and waiting actively for the rest.
class Clock : public platform::ContinuousClock {
  public:
    platform::Instant now() const override;
    void sleepFor(std::chrono::nanoseconds duration) override;
    std::unique_ptr<platform::CancellableWait> makeWait() override;

    /// The end of the sleep or wait that was begun last.
    std::shared_ptr<const NextClickDeadline> nextClickDeadline() const {
        return nextClickDeadline_;
    }

  private:
    const std::shared_ptr<NextClickDeadline> nextClickDeadline_ =
        std::make_shared<NextClickDeadline>();
    WakeUpLatency sleepLatency_;
    WakeUpLatency waitLatency_;
};

/// A descriptor that becomes readable at a moment of the boot-time clock and stays so until it is
/// set again.
class TimerDescriptor {
  public:
    TimerDescriptor();

    int get() const { return descriptor_.get(); }

    /// Readable from `moment` on; false where the process cannot have a timer.
    bool set(platform::Instant moment) const;

    /// Not readable until set.
    void clear() const;

  private:
    const posix::FileDescriptor descriptor_;
};

} // namespace corvane::linux
