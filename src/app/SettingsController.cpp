#include "app/SettingsController.h"

#include "app/SharedServices.h"
#include "platform/Application.h"
#include "platform/Platform.h"
#include "ui/AboutTab.h"
#include "ui/ConfigWindow.h"
#include "ui/GeneralTab.h"
#include "ui/ProfilesTab.h"

#include <utility>

namespace corvane {

SettingsController::SettingsController(platform::Platform &platform, SharedServices &shared,
                                       std::function<void()> selectZone,
                                       std::function<void()> refresh)
    : platform_(platform),
      shared_(shared),
      selectZone_(std::move(selectZone)),
      refresh_(std::move(refresh)) {}

SettingsController::~SettingsController() = default;

void SettingsController::show() {
    if (!isVisible()) {
        configWindow_ = std::make_unique<ConfigWindow>(
            platform_.settingsWindows(),
            [this](const std::string &identifier) { return makeTab(identifier); },
            weakly_(&SettingsController::selectTab));
        configWindow_->center();
    }
    configWindow_->makeKeyAndOrderFront();
    platform_.application().activateIgnoringOtherApps();
}

void SettingsController::reopen() {
    configWindow_.reset();
    show();
}

void SettingsController::hide() {
    if (configWindow_) {
        configWindow_->orderOut();
    }
}

bool SettingsController::isVisible() const { return configWindow_ && configWindow_->isVisible(); }

void SettingsController::selectTab(const std::string &identifier) {
    if (configWindow_) {
        configWindow_->setSelectedItemIdentifier(identifier);
        configWindow_->showTab(identifier);
    }
}

std::shared_ptr<SettingsTab> SettingsController::makeTab(const std::string &identifier) {
    if (identifier == "general") {
        return makeGeneralTab();
    }
    if (identifier == "profiles") {
        return makeProfilesTab();
    }
    return std::make_shared<AboutTab>(platform_.application(), platform_.workspace());
}

std::shared_ptr<SettingsTab> SettingsController::makeGeneralTab() {
    auto tab =
        std::make_shared<GeneralTab>(shared_.appState.config, platform_.loginItem(), shared_.alerts,
                                     platform_.applications(), shared_.windowResolver);
    tab->onSave = {weakly_(&SettingsController::save)};
    tab->onSelectZone = {weakly_([](SettingsController &self) { self.selectZone_(); })};
    tab->onRemoveAnchor = {weakly_(&SettingsController::removeAnchor)};
    return tab;
}

std::shared_ptr<SettingsTab> SettingsController::makeProfilesTab() {
    AppState &state = shared_.appState;
    auto tab = std::make_shared<ProfilesTab>(state.profiles, state.activeProfileID, shared_.alerts,
                                             platform_.applications());
    tab->onLoad = {weakly_([&state](SettingsController &self, const Profile &profile) {
        state.applyProfile(profile);
        self.profilesChanged();
    })};
    tab->onRename = {
        weakly_([&state](SettingsController &self, const Uuid &id, const std::string &name) {
            state.renameProfile(id, name);
            self.profilesChanged();
        })};
    tab->onDelete = {weakly_([&state](SettingsController &self, const Uuid &id) {
        state.deleteProfile(id);
        self.profilesChanged();
    })};
    tab->onSaveCurrent = {weakly_([&state](SettingsController &self, const std::string &name) {
        state.saveCurrentAsProfile(name);
        self.profilesChanged();
    })};
    return tab;
}

void SettingsController::save(const CorvaneConfig &config) {
    shared_.appState.config = config;
    shared_.appState.saveConfig();
    hide();
    refresh_();
}

void SettingsController::removeAnchor() {
    shared_.appState.config.windowAnchor.reset();
    shared_.appState.saveConfig();
    refresh_();
}

void SettingsController::profilesChanged() {
    refresh_();
    selectTab("profiles");
}

} // namespace corvane
