#pragma once

#include "platform/Alerts.h"
#include "support/OneThread.h"

#include <deque>
#include <functional>
#include <vector>

namespace corvane::testing {

/// Answers alerts by a script and keeps them. Main thread.
class RecordingAlerts : public platform::Alerts {
  public:
    AlertResponse runModal(const Alert &alert) override;

    /// The answers to the next alerts, in order. Without one, an alert is closed: it answers with
    /// its last button.
    std::deque<AlertResponse> answers;

    /// Called while an alert is up: what else happens on the main thread meanwhile.
    std::function<void(const Alert &)> whileShown;

    /// Whether an alert waits for its answer.
    bool isShown() const { return open_ > 0; }

    /// Every alert so far.
    std::vector<Alert> shown;

  private:
    const OneThread mainThread_{"alerts"};
    int open_ = 0;
};

} // namespace corvane::testing
