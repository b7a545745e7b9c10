#pragma once

#include "VirtualDesktop.h"

#include <chrono>
#include <filesystem>

namespace corvane::desktop {

/// A wall clock for one program, which is set without setting the machine's. The clocks that nobody
/// can set are the machine's.
class WallClock {
  public:
    /// Goes with the machine's at first.
    explicit WallClock(const VirtualDesktop &desktop);

    /// What a program is started with to go by this clock.
    Environment environment() const;

    /// Steps to so far from the machine's clock.
    void set(std::chrono::seconds offset) const;

  private:
    std::filesystem::path file_;
};

} // namespace corvane::desktop
