#include "support/recorder/RecordingAlerts.h"

namespace corvane::testing {

AlertResponse RecordingAlerts::runModal(const Alert &alert) {
    mainThread_.check();
    shown.push_back(alert);
    ++open_;
    if (whileShown) {
        whileShown(alert);
    }
    --open_;
    if (answers.empty()) {
        return {.button = alert.buttons.size() - 1};
    }
    const AlertResponse answer = answers.front();
    answers.pop_front();
    return answer;
}

} // namespace corvane::testing
