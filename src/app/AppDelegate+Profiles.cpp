#include "app/AppDelegate.h"
#include "platform/Alerts.h"
#include "platform/Platform.h"
#include "state/AppState.h"
#include "support/Localised.h"
#include "support/WhiteSpace.h"
#include "ui/ConfigWindow.h"

#include <algorithm>

namespace corvane {

namespace {

Alert nameAlert() {
    return {.style = AlertStyle::warning,
            .messageText = localised("Save Profile"),
            .informativeText = localised("Enter a name for this profile:"),
            .buttons = {localised("Save"), localised("Cancel")},
            .field = AlertField{.size = {260, 24}, .placeholder = localised("Profile name")}};
}

} // namespace

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
    if (configWindow_ && configWindow_->isVisible()) {
        reopenConfig();
    }
}

void AppDelegate::saveAsProfile() {
    const AlertResponse response = platform_.alerts().runModal(nameAlert());
    const std::string name = withoutBlanks(response.fieldText);
    if (!response.isFirstButton() || name.empty()) {
        return;
    }
    appState_.saveCurrentAsProfile(name);
    statusBarController_.rebuildMenu();
}

} // namespace corvane
