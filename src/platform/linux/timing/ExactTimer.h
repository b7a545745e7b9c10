#pragma once

#include "platform/linux/timing/Clock.h"

#include <QSocketNotifier>

#include <functional>
#include <optional>

namespace corvane::linux {

/// Calls a function once, at a moment of the boot-time clock, from Qt's event loop. A QTimer counts
/// whole milliseconds and often fires one too early, which costs a second wake-up. Main thread,
/// after the application is made.
class ExactTimer {
  public:
    explicit ExactTimer(std::function<void()> fire);

    /// Replaces the moment that was set before. False where the process cannot have a timer.
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
