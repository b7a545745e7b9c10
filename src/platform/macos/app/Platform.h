#pragma once

#include "platform/Platform.h"
#include "platform/macos/app/Alerts.h"
#include "platform/macos/app/Application.h"
#include "platform/macos/app/CommandEndpoint.h"
#include "platform/macos/app/KeyboardFocus.h"
#include "platform/macos/app/Localisation.h"
#include "platform/macos/app/LoginItem.h"
#include "platform/macos/app/UserSession.h"
#include "platform/macos/app/Workspace.h"
#include "platform/macos/click/MouseEvents.h"
#include "platform/macos/hotkey/HotKeys.h"
#include "platform/macos/overlay/OverlayWindows.h"
#include "platform/macos/settings/SettingsWindows.h"
#include "platform/macos/statusitem/StatusBar.h"
#include "platform/macos/support/Clock.h"
#include "platform/macos/support/MainQueue.h"
#include "platform/macos/windows/Accessibility.h"
#include "platform/macos/windows/Applications.h"
#include "platform/macos/windows/Screens.h"
#include "platform/macos/windows/WindowList.h"
#include "platform/posix/PosixFileSystem.h"

namespace corvane::macos {

/// Everything of macOS that the portable application uses.
class Platform : public platform::Platform {
  public:
    platform::Accessibility &accessibility() override { return accessibility_; }
    platform::Alerts &alerts() override { return alerts_; }
    platform::Application &application() override { return application_; }
    platform::Applications &applications() override { return applications_; }
    platform::ContinuousClock &clock() override { return clock_; }
    platform::CommandEndpoint &commandEndpoint() override { return commandEndpoint_; }
    platform::FileSystem &fileSystem() override { return fileSystem_; }
    platform::HotKeys &hotKeys() override { return hotKeys_; }
    platform::Localisation &localisation() override { return localisation_; }
    platform::LoginItem &loginItem() override { return loginItem_; }
    platform::MainQueue &mainQueue() override { return mainQueue_; }
    platform::MouseEvents &mouseEvents() override { return mouseEvents_; }
    platform::OverlayWindows &overlayWindows() override { return overlayWindows_; }
    platform::Screens &screens() override { return screens_; }
    platform::SettingsWindows &settingsWindows() override { return settingsWindows_; }
    platform::StatusBar &statusBar() override { return statusBar_; }
    platform::UserSession &userSession() override { return userSession_; }
    platform::WindowList &windowList() override { return windowList_; }
    platform::Workspace &workspace() override { return workspace_; }

  private:
    KeyboardFocus keyboard_;
    Clock clock_;
    Accessibility accessibility_{clock_};
    Alerts alerts_{keyboard_};
    Application application_;
    Applications applications_;
    posix::PosixFileSystem fileSystem_;
    HotKeys hotKeys_;
    Localisation localisation_;
    LoginItem loginItem_;
    MainQueue mainQueue_;
    CommandEndpoint commandEndpoint_{mainQueue_};
    MouseEvents mouseEvents_;
    OverlayWindows overlayWindows_{keyboard_};
    Screens screens_;
    SettingsWindows settingsWindows_{keyboard_};
    StatusBar statusBar_;
    UserSession userSession_;
    WindowList windowList_{accessibility_};
    Workspace workspace_;
};

} // namespace corvane::macos
