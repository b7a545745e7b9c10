#include "app/AppDelegate.h"

#include "app/AnchorTracking.h"
#include "app/CommandService.h"
#include "app/SharedServices.h"
#include "overlay/RippleWindow.h"
#include "overlay/ZoneOverlayWindow.h"
#include "platform/Application.h"
#include "platform/MainQueue.h"
#include "platform/Platform.h"
#include "ui/ConfigWindow.h"

#include <map>
#include <string_view>

namespace corvane {

AppDelegate::AppDelegate(platform::Platform &platform, SharedServices &shared)
    : platform_(platform),
      shared_(shared),
      appState_(shared.appState),
      hotkeyService_(platform.hotKeys(), platform.mainQueue()),
      statusBarController_(appState_, platform.applications()) {}

AppDelegate::~AppDelegate() = default;

Menu AppDelegate::menu() const { return statusBarController_.menu(); }

bool AppDelegate::isHotkeyRegistered() const { return hotkeyService_.isRegistered(); }

void AppDelegate::perform(const MenuCommand &command) {
    using Member = void (AppDelegate::*)();
    static const std::map<std::string_view, Member> members = {
        {"openAccessibilitySettings:", &AppDelegate::openAccessibilitySettings},
        {"saveAsProfile:", &AppDelegate::saveAsProfile},
        {"selectZone:", &AppDelegate::selectZone},
        {"setModeCursor:", &AppDelegate::setModeCursor},
        {"setModeZone:", &AppDelegate::setModeZone},
        {"showConfig:", &AppDelegate::showConfig},
        {"startClicking:", &AppDelegate::startClicking},
        {"stopClicking:", &AppDelegate::stopClicking},
        {"terminate:", &AppDelegate::terminate},
    };
    if (command.action == "loadProfile:") {
        loadProfile(command.representedObject);
    } else if (const auto found = members.find(command.action); found != members.end()) {
        (this->*found->second)();
    }
}

void AppDelegate::terminate() { platform_.application().terminate(); }

void AppDelegate::refreshStatusBar() {
    statusBarController_.updateIcon();
    statusBarController_.rebuildMenu();
}

} // namespace corvane
