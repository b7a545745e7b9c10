#pragma once

#include "platform/Alerts.h"

namespace corvane::macos {

/// The system's alert panels.
class Alerts : public platform::Alerts {
  public:
    AlertResponse runModal(const Alert &alert) override;
};

} // namespace corvane::macos
