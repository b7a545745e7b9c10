#include "app/AppDelegate.h"
#include "app/CommandService.h"
#include "app/SharedServices.h"
#include "platform/Accessibility.h"
#include "platform/CommandEndpoint.h"
#include "platform/MainQueue.h"
#include "platform/Platform.h"
#include "platform/StatusBar.h"
#include "platform/UserSession.h"
#include "platform/Workspace.h"
#include "support/Log.h"

#include <chrono>
#include <string>

namespace corvane {

namespace {

constexpr std::chrono::seconds accessibilityPollPeriod{3};
constexpr const char *accessibilitySettingsUrl =
    "x-apple.systempreferences:com.apple.preference.security?Privacy_Accessibility";

} // namespace

void AppDelegate::applicationDidFinishLaunching(LaunchCause cause) {
    statusBarController_.statusItem = platform_.statusBar().createItem(
        weakly([](AppDelegate &self, const MenuCommand &command) { self.perform(command); }));
    refreshStatusBar();
    platform_.userSession().whenChanged(weakly([](AppDelegate &self) { self.sessionChanged(); }));
    platform_.mainQueue().post(weakly([cause](AppDelegate &self) {
        self.appState_.loadConfig(self.weakly([cause](AppDelegate &loading) {
            loading.appState_.loadProfiles(
                loading.weakly([cause](AppDelegate &loaded) { loaded.finishLaunching(cause); }));
        }));
    }));
}

void AppDelegate::finishLaunching(LaunchCause cause) {
    const bool isTrusted = platform_.accessibility().isProcessTrustedWithPrompt();
    appState_.isAccessibilityGranted = isTrusted;
    log(std::string("Initial accessibility: ") + (isTrusted ? "true" : "false"));
    startAccessibilityPolling(
        weakly([](AppDelegate &self, bool nowTrusted) { self.accessibilityChecked(nowTrusted); }));
    statusBarController_.rebuildMenu();
    registerHotkey();
    listenForCommands();
    awaitStatusBar(cause);
}

void AppDelegate::listenForCommands() {
    commandService_ = std::make_shared<CommandService>(*this, appState_, platform_.userSession(),
                                                       platform_.mainQueue());
    platform_.commandEndpoint().listen(
        weakly([](AppDelegate &self, const CommandRequest &request, const CommandReply &reply) {
            self.commandService_->obey(request, reply);
        }));
}

void AppDelegate::startAccessibilityPolling(std::function<void(bool isTrusted)> callback) {
    accessibilityPollTimer_ = platform_.mainQueue().every(
        accessibilityPollPeriod,
        [&accessibility = platform_.accessibility(), callback = std::move(callback)] {
            callback(accessibility.isProcessTrusted());
        });
}

void AppDelegate::accessibilityChecked(bool isTrusted) {
    const bool wasGranted = std::exchange(appState_.isAccessibilityGranted, isTrusted);
    statusBarController_.rebuildMenu();
    if (!wasGranted && isTrusted) {
        log("Accessibility granted — registering hotkey");
        registerHotkey();
    } else {
        retryHotkey();
    }
}

void AppDelegate::registerHotkey() {
    hotkeyService_.registerHotkey(weakly([](AppDelegate &self) { self.toggleClicking(); }));
    statusBarController_.updateToolTip(hotkeyService_.isRegistered());
}

/// Whoever has the key says nothing when it lets go.
void AppDelegate::retryHotkey() {
    hotkeyService_.retry();
    statusBarController_.updateToolTip(hotkeyService_.isRegistered());
}

void AppDelegate::openAccessibilitySettings() {
    platform_.workspace().openUrl(accessibilitySettingsUrl);
}

void AppDelegate::applicationShouldHandleReopen() {
    if (!statusBarController_.statusItem) {
        return;
    }
    if (statusBarController_.statusItem->isShown() || appState_.status == ClickStatus::running) {
        statusBarController_.statusItem->openMenu();
    } else {
        showConfig();
    }
}

void AppDelegate::applicationWillTerminate() {
    accessibilityPollTimer_.reset();
    statusBarTimer_.reset();
    hotkeyService_.unregister();
    shared_.clickerService.stop();
    platform_.commandEndpoint().close([this] {
        if (commandService_) {
            commandService_->sayGoodbye();
        }
    });
}

} // namespace corvane
