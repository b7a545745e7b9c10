#pragma once

#include "platform/Alerts.h"

#include <functional>

namespace corvane {

class AppState;

/// Lets one alert be open at a time, and keeps `AppState::isAlertOpen`. Main thread.
class AlertGate : public platform::Alerts {
  public:
    /// Both outlive the gate.
    AlertGate(platform::Alerts &alerts, AppState &state) : alerts_(alerts), state_(state) {}

    /// Called after an alert has become the open one and after it has closed.
    std::function<void()> onChange;

    /// While another alert is open, answers as if the user had closed this one.
    AlertResponse runModal(const Alert &alert) override;

  private:
    void setOpen(bool isOpen);

    platform::Alerts &alerts_;
    AppState &state_;
};

} // namespace corvane
