#include "app/AppDelegate.h"
#include "app/SharedServices.h"
#include "platform/Application.h"
#include "platform/Platform.h"
#include "state/AppState.h"
#include "ui/AboutTab.h"
#include "ui/ConfigWindow.h"
#include "ui/GeneralTab.h"
#include "ui/ProfilesTab.h"

namespace corvane {

void AppDelegate::showConfig() {
    if (!configWindow_ || !configWindow_->isVisible()) {
        configWindow_ = std::make_unique<ConfigWindow>(
            platform_.settingsWindows(),
            [this](const std::string &identifier) { return makeTab(identifier); },
            weakly(&AppDelegate::toolbarTabSelected));
        configWindow_->center();
    }
    configWindow_->makeKeyAndOrderFront();
    platform_.application().activateIgnoringOtherApps();
}

void AppDelegate::reopenConfig() {
    configWindow_.reset();
    showConfig();
}

void AppDelegate::toolbarTabSelected(const std::string &identifier) {
    if (configWindow_) {
        configWindow_->setSelectedItemIdentifier(identifier);
        configWindow_->showTab(identifier);
    }
}

std::shared_ptr<SettingsTab> AppDelegate::makeTab(const std::string &identifier) {
    if (identifier == "general") {
        return makeGeneralTab();
    }
    if (identifier == "profiles") {
        return makeProfilesTab();
    }
    return std::make_shared<AboutTab>(platform_.application(), platform_.workspace());
}

std::shared_ptr<SettingsTab> AppDelegate::makeGeneralTab() {
    auto tab =
        std::make_shared<GeneralTab>(appState_.config, platform_.loginItem(), platform_.alerts(),
                                     platform_.applications(), shared_.windowResolver);
    tab->onSave = {weakly(&AppDelegate::saveSettings)};
    tab->onSelectZone = {weakly(&AppDelegate::selectZone)};
    tab->onRemoveAnchor = {weakly(&AppDelegate::removeAnchor)};
    return tab;
}

std::shared_ptr<SettingsTab> AppDelegate::makeProfilesTab() {
    auto tab = std::make_shared<ProfilesTab>(appState_.profiles, appState_.activeProfileID,
                                             platform_.alerts(), platform_.applications());
    tab->onLoad = {weakly([](AppDelegate &self, const Profile &profile) {
        self.appState_.applyProfile(profile);
        self.profilesChanged();
    })};
    tab->onRename = {weakly([](AppDelegate &self, const Uuid &id, const std::string &name) {
        self.appState_.renameProfile(id, name);
        self.profilesChanged();
    })};
    tab->onDelete = {weakly([](AppDelegate &self, const Uuid &id) {
        self.appState_.deleteProfile(id);
        self.profilesChanged();
    })};
    tab->onSaveCurrent = {weakly([](AppDelegate &self, const std::string &name) {
        self.appState_.saveCurrentAsProfile(name);
        self.profilesChanged();
    })};
    return tab;
}

void AppDelegate::saveSettings(const CorvaneConfig &config) {
    appState_.config = config;
    appState_.saveConfig();
    if (configWindow_) {
        configWindow_->orderOut();
    }
    statusBarController_.rebuildMenu();
}

void AppDelegate::removeAnchor() {
    appState_.config.windowAnchor.reset();
    appState_.saveConfig();
    statusBarController_.rebuildMenu();
}

void AppDelegate::profilesChanged() {
    statusBarController_.rebuildMenu();
    toolbarTabSelected("profiles");
}

} // namespace corvane
