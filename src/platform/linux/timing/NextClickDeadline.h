#pragma once

#include "platform/ContinuousClock.h"

#include <atomic>

namespace corvane::linux {

/// Until when the thread that clicks waits: its next press or release is due then. Any thread.
class NextClickDeadline {
  public:
    void set(platform::Instant moment) { moment_ = moment; }

    /// Has passed while nothing is waited for.
    platform::Instant get() const { return moment_; }

  private:
    std::atomic<platform::Instant> moment_{};
};

} // namespace corvane::linux
