#pragma once

#include "platform/Alerts.h"

namespace corvane::qt {

/// Alerts as dialogs above all windows on every workspace. Closing one, Escape and the end of the
/// program answer with the last button.
class Alerts : public platform::Alerts {
  public:
    AlertResponse runModal(const Alert &alert) override;
};

} // namespace corvane::qt
