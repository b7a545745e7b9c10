#pragma once

#include "platform/Alerts.h"
#include "platform/qt/OwnWindows.h"

#include <utility>

namespace corvane::qt {

/// Alerts as dialogs above all windows on every workspace. Closing one, Escape and the end of the
/// program answer with the last button.
class Alerts : public platform::Alerts {
  public:
    explicit Alerts(OwnWindows ownWindows) : ownWindows_(std::move(ownWindows)) {}

    AlertResponse runModal(const Alert &alert) override;

  private:
    const OwnWindows ownWindows_;
};

} // namespace corvane::qt
