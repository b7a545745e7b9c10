#include "state/AlertGate.h"

#include "state/AppState.h"
#include "support/Log.h"

namespace corvane {

AlertResponse AlertGate::runModal(const Alert &alert) {
    if (state_.isAlertOpen) {
        log("Another alert is open: its question comes first");
        return {.button = alert.buttons.size() - 1};
    }
    setOpen(true);
    AlertResponse response = alerts_.runModal(alert);
    setOpen(false);
    return response;
}

void AlertGate::setOpen(bool isOpen) {
    state_.isAlertOpen = isOpen;
    if (onChange) {
        onChange();
    }
}

} // namespace corvane
