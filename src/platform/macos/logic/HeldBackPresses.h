#pragma once

#include <chrono>
#include <optional>

namespace corvane::macos {

/// The system holds hot keys back while a menu of this program is open and delivers all presses
/// when it closes. Several such presses count once: the user repeats one that seems to do nothing.
class HeldBackPresses {
  public:
    using Time = std::chrono::duration<double>;

    /// Whether a press counts that was made at one time and is delivered at another.
    bool counts(Time pressed, Time delivered);

  private:
    /// When the latest press that was held back was delivered.
    std::optional<Time> heldBack_;
};

} // namespace corvane::macos
