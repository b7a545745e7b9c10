#include "ui/StatusBarController.h"

#include "platform/StatusBar.h"
#include "state/AppState.h"
#include "state/Availability.h"
#include "support/Localised.h"

#include <cstddef>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace corvane {

namespace {

constexpr double iconPointSize = 14;
constexpr double menuSymbolPointSize = 13;
constexpr double dotDiameter = 7;
constexpr double dotTrailingGap = 1;
constexpr double dotTop = 2;

constexpr std::size_t mostLines = 15;

MenuItem information(std::string title) { return {.title = std::move(title), .isEnabled = false}; }

MenuItem command(std::string title, ActionID action, const AppState &state) {
    return {.title = std::move(title), .action = action, .isEnabled = !obstacleTo(action, state)};
}

MenuItem withImage(MenuItem item, std::string symbol) {
    item.image = Symbol{.name = std::move(symbol), .pointSize = menuSymbolPointSize};
    return item;
}

MenuItem checked(MenuItem item, bool isOn) {
    item.isOn = isOn;
    return item;
}

std::string zoneTitle(const CorvaneConfig &config, platform::Applications &applications) {
    std::string title = localised("Defined Zone");
    if (config.clickMode == ClickMode::zone && config.zoneRect) {
        title += " (" + config.zoneRect->sizeLabel() + ")";
        if (config.windowAnchor) {
            title += " (" + config.windowAnchor->appName(applications) + ")";
        }
    }
    return title;
}

std::string rateLine(const CorvaneConfig &config) {
    return localised("Rate: ") + std::to_string(config.clickRate) + "/" +
           std::string(storedValue(config.timeUnit)) + " — " + config.maxClicksLabel();
}

MenuItem startOrStopItem(const AppState &state) {
    MenuItem item =
        state.status == ClickStatus::running
            ? withImage(command(localised("Stop"), ActionID::stopClicking, state), "stop.fill")
            : withImage(command(localised("Start"), ActionID::startClicking, state), "play.fill");
    item.hotKey = startStopKey;
    return item;
}

std::vector<MenuItem> profilesSubmenu(const AppState &state) {
    constexpr std::size_t linesBelow = 2;
    std::vector<MenuItem> items;
    items.reserve(state.profiles.size() + linesBelow);
    for (const Profile &profile : state.profiles) {
        MenuItem item = checked(command(profile.name, ActionID::loadProfile, state),
                                state.activeProfileID == profile.id);
        item.representedObject = profile.id.text();
        items.push_back(std::move(item));
    }
    if (items.empty()) {
        items.push_back(information(localised("No profiles")));
    }
    items.push_back(MenuItem::separator());
    items.push_back(
        withImage(command(localised("Save current config..."), ActionID::saveAsProfile, state),
                  "plus.circle"));
    return items;
}

} // namespace

StatusBarController::StatusBarController(const AppState &appState,
                                         platform::Applications &applications)
    : appState_(appState),
      applications_(applications) {}

StatusBarController::~StatusBarController() = default;

void StatusBarController::updateIcon() {
    const auto button = statusItem ? statusItem->buttonSize() : std::nullopt;
    if (!button) {
        return;
    }
    StatusIcon icon{.image = {.name = "cursorarrow.click.2",
                              .pointSize = iconPointSize,
                              .description = "Corvane"},
                    .title = ""};
    if (appState_.status == ClickStatus::running) {
        icon.dot = StatusDot{.frame = {button->width - dotDiameter - dotTrailingGap, dotTop,
                                       dotDiameter, dotDiameter},
                             .cornerRadius = dotDiameter / 2,
                             .colour = {ColourName::systemGreen}};
    }
    statusItem->setIcon(icon);
}

void StatusBarController::updateToolTip(bool isHotkeyRegistered) {
    if (statusItem) {
        statusItem->setToolTip(
            isHotkeyRegistered
                ? std::string()
                : localised("The shortcut that starts and stops clicking is not available"));
    }
}

void StatusBarController::rebuildMenu() {
    if (statusItem) {
        statusItem->setMenu(menu());
    }
}

Menu StatusBarController::menu() const {
    const CorvaneConfig &config = appState_.config;
    const bool isZoneMode = config.clickMode == ClickMode::zone;

    std::vector<MenuItem> items;
    items.reserve(mostLines);
    items.push_back(information(appState_.statusText()));
    if (!appState_.isAccessibilityGranted) {
        items.push_back(withImage(command(localised("Open Accessibility Settings..."),
                                          ActionID::openAccessibilitySettings, appState_),
                                  "lock.shield"));
    }
    items.push_back(MenuItem::separator());
    items.push_back(startOrStopItem(appState_));
    items.push_back(MenuItem::separator());
    items.push_back(checked(command(localised("Free Cursor"), ActionID::setModeCursor, appState_),
                            !isZoneMode));
    items.push_back(checked(
        command(zoneTitle(config, applications_), ActionID::setModeZone, appState_), isZoneMode));
    if (isZoneMode) {
        items.push_back(
            withImage(command(localised("Define zone..."), ActionID::selectZone, appState_),
                      "rectangle.dashed"));
    }
    items.push_back(MenuItem::separator());
    items.push_back(information(rateLine(config)));
    items.push_back(MenuItem::separator());
    items.push_back(
        withImage({.title = localised("Profiles"), .submenu = profilesSubmenu(appState_)},
                  "person.crop.rectangle.stack"));
    items.push_back(MenuItem::separator());
    MenuItem settings =
        withImage(command(localised("Settings..."), ActionID::showConfig, appState_), "gearshape");
    settings.commandKey = ",";
    items.push_back(std::move(settings));
    items.push_back(
        {.title = localised("Quit Corvane"), .action = ActionID::terminate, .commandKey = "q"});
    return {std::move(items)};
}

} // namespace corvane
