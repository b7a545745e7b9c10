#pragma once

#include "platform/ContinuousClock.h"
#include "platform/linux/WakeUpLead.h"

namespace corvane::x11 {

/// The system's boot-time clock.
class LinuxClock : public platform::ContinuousClock {
  public:
    platform::Instant now() const override;
    void hold(std::chrono::nanoseconds duration) override;
    std::unique_ptr<platform::CancellableWait> makeWait() override;

  private:
    WakeUpLead holdLead_;
};

} // namespace corvane::x11
