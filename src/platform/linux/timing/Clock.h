#pragma once

#include "platform/ContinuousClock.h"
#include "platform/linux/timing/NextClickDeadline.h"
#include "platform/linux/timing/WakeUpLatency.h"

#include <memory>

namespace corvane::x11 {

/// The system's boot-time clock.
class LinuxClock : public platform::ContinuousClock {
  public:
    platform::Instant now() const override;
    using ContinuousClock::hold;
    void hold(std::chrono::nanoseconds duration, const std::function<void()> &beforehand) override;
    std::unique_ptr<platform::CancellableWait> makeWait() override;

    /// Until when those who use the clock hold or wait.
    std::shared_ptr<const AwaitedMoment> awaited() const { return awaited_; }

  private:
    const std::shared_ptr<AwaitedMoment> awaited_ = std::make_shared<AwaitedMoment>();
    WakeUpLead holdLead_;
    WakeUpLead waitLead_;
};

} // namespace corvane::x11
