#pragma once

#include "platform/Alerts.h"

namespace corvane::macos {

class KeyboardFocus;

/// The system's alert panels.
class Alerts : public platform::Alerts {
  public:
    /// The keyboard outlives it.
    explicit Alerts(KeyboardFocus &keyboard) : keyboard_(keyboard) {}

    AlertResponse runModal(const Alert &alert) override;

  private:
    KeyboardFocus &keyboard_;
};

} // namespace corvane::macos
