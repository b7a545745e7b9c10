#pragma once

#include "platform/ContinuousClock.h"
#include "platform/posix/FileDescriptor.h"

namespace corvane::linux {

/// A descriptor that becomes readable at a moment of the system's boot-time clock, and stays so
/// until it is set again.
class TimerDescriptor {
  public:
    TimerDescriptor();

    int get() const { return descriptor_.get(); }

    /// Readable from `moment` on; false where the system has no timer to be had.
    bool set(platform::Instant moment) const;

    /// Not readable until set.
    void clear() const;

  private:
    const posix::FileDescriptor descriptor_;
};

} // namespace corvane::linux
