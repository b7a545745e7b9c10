#include "app/AppDelegate.h"
#include "app/SharedServices.h"
#include "platform/Alerts.h"
#include "platform/MainQueue.h"
#include "platform/Platform.h"
#include "platform/StatusBar.h"
#include "support/Localised.h"

#include <chrono>

namespace corvane {

namespace {

/// How long a status bar may take to take the item. At login it comes up beside this program, and
/// on a busy machine much later.
constexpr std::chrono::seconds patienceWithStatusBar(LaunchCause cause) {
    return cause == LaunchCause::login ? std::chrono::seconds(30) : std::chrono::seconds(2);
}

Alert missingStatusBarAlert() {
    return {.style = AlertStyle::informational,
            .messageText = localised("No panel shows Corvane here"),
            .informativeText =
                localised("This desktop shows no status icons, so Corvane's menu is missing. "
                          "Super+Shift+Y starts and stops clicking. Opening Corvane again brings "
                          "the settings back; its entry among the applications can also start, "
                          "stop and quit it."),
            .buttons = {localised("OK")}};
}

} // namespace

void AppDelegate::awaitStatusBar(LaunchCause cause) {
    statusBarTimer_ = platform_.mainQueue().after(
        patienceWithStatusBar(cause),
        weakly([](AppDelegate &self) { self.startWithoutStatusBar(); }));
}

void AppDelegate::startWithoutStatusBar() {
    if (statusBarController_.statusItem->isShown() || appState_.status != ClickStatus::idle) {
        return;
    }
    showConfig();
    // Where nothing can be clicked at all, the user has just been told that.
    if (appState_.isAccessibilityGranted) {
        shared_.storeQueue.post(
            [&notices = shared_.noticeService, &mainQueue = platform_.mainQueue(),
             tell = weakly([](AppDelegate &self) { self.tellOfMissingStatusBar(); })] {
                if (notices.isFirst("missing-status-bar")) {
                    mainQueue.post(tell);
                }
            });
    }
}

void AppDelegate::tellOfMissingStatusBar() { platform_.alerts().runModal(missingStatusBarAlert()); }

} // namespace corvane
