#pragma once

#include "platform/ContinuousClock.h"

namespace corvane::macos {

/// The machine's continuous time.
class Clock : public platform::ContinuousClock {
  public:
    platform::Instant now() const override;
    void sleepFor(std::chrono::nanoseconds duration) override;
    std::unique_ptr<platform::CancellableWait> makeWait() override;
};

} // namespace corvane::macos
