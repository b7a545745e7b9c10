#include "platform/qt/alerts/Alerts.h"

#include "platform/qt/alerts/AlertDialog.h"

namespace corvane::qt {

AlertResponse Alerts::runModal(const Alert &alert) {
    AlertDialog dialog(alert, ownWindows_);
    dialog.exec();
    return dialog.response();
}

} // namespace corvane::qt
