#include "app/AppDelegate.h"

#include "app/CommandService.h"
#include "app/SharedServices.h"
#include "platform/Accessibility.h"
#include "platform/Application.h"
#include "platform/CommandEndpoint.h"
#include "platform/MainQueue.h"
#include "platform/Platform.h"
#include "platform/StatusBar.h"
#include "platform/UserSession.h"
#include "state/Availability.h"
#include "support/Localised.h"
#include "support/Log.h"
#include "support/WhiteSpace.h"

#include <algorithm>
#include <chrono>
#include <string>
#include <utility>

namespace corvane {

namespace {

constexpr std::chrono::seconds accessibilityPollPeriod{3};

Alert nameAlert() {
    return {.style = AlertStyle::warning,
            .messageText = localised("Save Profile"),
            .informativeText = localised("Enter a name for this profile:"),
            .buttons = {localised("Save"), localised("Cancel")},
            .field = AlertField{.size = {260, 24}, .placeholder = localised("Profile name")}};
}

} // namespace

AppDelegate::AppDelegate(platform::Platform &platform, SharedServices &shared)
    : platform_(platform),
      shared_(shared),
      appState_(shared.appState),
      hotkeyService_(platform.hotKeys(), platform.mainQueue()),
      statusBarController_(appState_, platform.applications()),
      runs_(platform, shared, [this] { refreshStatusBar(); }),
      settings_(
          platform, shared, [this] { selectZone(); },
          [this] { statusBarController_.rebuildMenu(); }),
      zoneSelection_(platform.mainQueue(), shared, runs_, settings_,
                     [this] { statusBarController_.rebuildMenu(); }) {}

AppDelegate::~AppDelegate() = default;

void AppDelegate::applicationDidFinishLaunching(std::function<void()> launched) {
    statusBarController_.statusItem =
        platform_.statusBar().createItem(weakly_(&AppDelegate::perform));
    refreshStatusBar();
    shared_.alerts.onChange =
        weakly_([](AppDelegate &self) { self.statusBarController_.rebuildMenu(); });
    appState_.session = platform_.userSession().state();
    platform_.userSession().whenChanged(weakly_(&AppDelegate::sessionChanged));
    platform_.mainQueue().post(weakly_([launched = std::move(launched)](AppDelegate &self) {
        self.appState_.loadConfig(self.weakly_([launched](AppDelegate &loading) {
            loading.appState_.loadProfiles(loading.weakly_([launched](AppDelegate &loaded) {
                loaded.finishLaunching();
                if (launched) {
                    launched();
                }
            }));
        }));
    }));
}

void AppDelegate::finishLaunching() {
    const bool isTrusted = platform_.accessibility().isProcessTrustedWithPrompt();
    appState_.isAccessibilityGranted = isTrusted;
    log(std::string("Initial accessibility: ") + (isTrusted ? "true" : "false"));
    startAccessibilityPolling(weakly_(&AppDelegate::accessibilityChecked));
    statusBarController_.rebuildMenu();
    registerHotkey();
    listenForCommands();
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
    }
    // The keyboard may have lost or got back a registered key.
    statusBarController_.updateToolTip(isHotkeyRegistered());
}

void AppDelegate::permissionChanged() {
    if (!accessibilityPollTimer_) {
        return;
    }
    const bool isTrusted = platform_.accessibility().isProcessTrusted();
    if (!isTrusted && appState_.status == ClickStatus::running) {
        stopClicking();
    }
    accessibilityChecked(isTrusted);
}

void AppDelegate::registerHotkey() {
    hotkeyService_.registerHotkey(weakly_(&AppDelegate::toggleClicking));
    statusBarController_.updateToolTip(isHotkeyRegistered());
}

void AppDelegate::sessionChanged() {
    appState_.session = platform_.userSession().state();
    runs_.sessionChanged();
    statusBarController_.rebuildMenu();
}

void AppDelegate::listenForCommands() {
    commandService_ = std::make_unique<CommandService>(*this, appState_, platform_.mainQueue(),
                                                       platform_.clock());
    platform_.commandEndpoint().listen(
        weakly_([](AppDelegate &self, const CommandRequest &request, const SendReply &sendReply) {
            self.commandService_->handle(request, sendReply);
        }));
}

void AppDelegate::applicationWillTerminate() {
    accessibilityPollTimer_.reset();
    hotkeyService_.unregister();
    shared_.clickerService.stop();
    platform_.commandEndpoint().close([this] {
        if (commandService_) {
            commandService_->replyToQuit();
        }
    });
}

void AppDelegate::applicationShouldHandleReopen() {
    if (!statusBarController_.statusItem) {
        return;
    }
    if (isStatusItemShown() || appState_.status == ClickStatus::running) {
        statusBarController_.statusItem->openMenu();
    } else {
        showConfig();
    }
}

bool AppDelegate::isHotkeyRegistered() const { return hotkeyService_.isRegistered(); }

bool AppDelegate::isStatusItemShown() const {
    return statusBarController_.statusItem && statusBarController_.statusItem->isShown();
}

void AppDelegate::perform(const MenuCommand &command) {
    switch (command.action) {
    case ActionID::none:
        return;
    case ActionID::openAccessibilitySettings:
        return openAccessibilitySettings();
    case ActionID::startClicking:
        return startClicking();
    case ActionID::stopClicking:
        return stopClicking();
    case ActionID::setModeCursor:
        return setModeCursor();
    case ActionID::setModeZone:
        return setModeZone();
    case ActionID::selectZone:
        return selectZone();
    case ActionID::loadProfile:
        return loadProfile(command.representedObject);
    case ActionID::saveAsProfile:
        return saveAsProfile();
    case ActionID::showConfig:
        return showConfig();
    case ActionID::terminate:
        return platform_.application().terminate();
    }
}

void AppDelegate::startClicking() { runs_.startRun(); }

void AppDelegate::stopClicking() { runs_.stopRun(); }

void AppDelegate::toggleClicking() {
    if (appState_.status == ClickStatus::running) {
        runs_.stopRun();
    } else {
        runs_.startRun();
    }
}

void AppDelegate::setModeCursor() { setMode(ClickMode::cursor); }

void AppDelegate::setModeZone() { setMode(ClickMode::zone); }

void AppDelegate::setMode(ClickMode mode) {
    appState_.config.clickMode = mode;
    appState_.saveConfig();
    statusBarController_.rebuildMenu();
}

void AppDelegate::selectZone() { zoneSelection_.select(); }

void AppDelegate::openAccessibilitySettings() { platform_.accessibility().openSettings(); }

void AppDelegate::loadProfile(const std::string &idText) {
    const std::optional<Uuid> id = Uuid::fromText(idText);
    if (!id) {
        return;
    }
    const auto profile = std::ranges::find(appState_.profiles, *id, &Profile::id);
    if (profile == appState_.profiles.end()) {
        return;
    }
    appState_.applyProfile(*profile);
    statusBarController_.rebuildMenu();
    if (settings_.isVisible()) {
        settings_.reopen();
    }
}

void AppDelegate::saveAsProfile() {
    if (appState_.isAlertOpen) {
        log("Cannot save a profile: " + reasonFor(Obstacle::alertOpen));
        return;
    }
    const AlertResponse response = shared_.alerts.runModal(nameAlert());
    const std::string name = withoutBlanks(response.fieldText);
    if (!response.isFirstButton() || name.empty()) {
        return;
    }
    appState_.saveCurrentAsProfile(name);
    statusBarController_.rebuildMenu();
}

void AppDelegate::showConfig() { settings_.show(); }

void AppDelegate::toolbarTabSelected(const std::string &identifier) {
    settings_.selectTab(identifier);
}

void AppDelegate::refreshStatusBar() {
    statusBarController_.updateIcon();
    statusBarController_.rebuildMenu();
}

} // namespace corvane
