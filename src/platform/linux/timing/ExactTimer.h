#pragma once

#include "platform/ContinuousClock.h"
#include "platform/linux/timing/TimerDescriptor.h"

#include <QSocketNotifier>

#include <functional>
#include <optional>

namespace corvane::linux {

/// Calls a function once, at a moment of the system's boot-time clock, in a turn of Qt's event
/// loop, whose own timers count whole milliseconds and wake up once too early as often as not. Main
/// thread, after the application is made.
class ExactTimer {
  public:
    explicit ExactTimer(std::function<void()> fire);

    /// Instead of the moment it was set to before. False where the system has no timer to be had.
    bool set(platform::Instant moment);
    void clear();

  private:
    void elapse();

    const std::function<void()> fire_;
    /// Nothing while not set.
    std::optional<platform::Instant> moment_;
    const TimerDescriptor descriptor_;
    QSocketNotifier readable_;
};

} // namespace corvane::linux
