#include "platform/linux/MissingPanel.h"

#include "app/AppDelegate.h"
#include "app/SharedServices.h"
#include "platform/Application.h"
#include "platform/MainQueue.h"
#include "platform/Platform.h"
#include "support/Localised.h"

#include <chrono>

namespace corvane::linux {

namespace {

constexpr std::chrono::seconds timeToAppear(LaunchCause cause) {
    return std::chrono::seconds(cause == LaunchCause::login ? 30 : 2);
}

Alert notice() {
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

MissingPanel::MissingPanel(platform::Platform &platform, SharedServices &shared,
                           AppDelegate &delegate)
    : platform_(platform),
      shared_(shared),
      delegate_(delegate),
      notices_(platform.fileSystem(), platform.application().homeDirectory()) {}

MissingPanel::~MissingPanel() = default;

void MissingPanel::await(LaunchCause cause) {
    timer_ = platform_.mainQueue().after(timeToAppear(cause), [this] { check(); });
}

void MissingPanel::check() {
    if (delegate_.isStatusItemShown() || shared_.appState.status != ClickStatus::idle) {
        return;
    }
    delegate_.showConfig();
    // Where nothing can be clicked at all, the accessibility guide has just said so.
    if (shared_.appState.isAccessibilityGranted) {
        // In a later turn, when the settings have the keyboard: what comes above them then keeps
        // it.
        shared_.storeQueue.post([notices = notices_, &mainQueue = platform_.mainQueue(),
                                 show = weakly_([](MissingPanel &self) {
                                     self.shared_.alerts.runModal(notice());
                                 })]() mutable {
            if (notices.isFirst("missing-status-bar")) {
                mainQueue.post(show);
            }
        });
    }
}

} // namespace corvane::linux
