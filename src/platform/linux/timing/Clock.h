#pragma once

#include "platform/ContinuousClock.h"
#include "platform/linux/timing/NextClickDeadline.h"
#include "platform/linux/timing/WakeUpLatency.h"

#include <memory>

namespace corvane::linux {

/// The system's boot-time clock.
class Clock : public platform::ContinuousClock {
  public:
    platform::Instant now() const override;
    void hold(std::chrono::nanoseconds duration) override;
    std::unique_ptr<platform::CancellableWait> makeWait() override;

    /// Until when those who use the clock hold or wait.
    std::shared_ptr<const NextClickDeadline> awaited() const { return awaited_; }

  private:
    const std::shared_ptr<NextClickDeadline> awaited_ = std::make_shared<NextClickDeadline>();
    WakeUpLatency holdLead_;
    WakeUpLatency waitLead_;
};

} // namespace corvane::linux
