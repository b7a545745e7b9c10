#pragma once

#include "platform/Platform.h"
#include "platform/macos/app/MacAlerts.h"
#include "platform/macos/app/MacApplication.h"
#include "platform/macos/app/MacCommandEndpoint.h"
#include "platform/macos/app/MacLocalisation.h"
#include "platform/macos/app/MacLoginItem.h"
#include "platform/macos/app/MacWorkspace.h"
#include "platform/macos/click/MacMouseEvents.h"
#include "platform/macos/hotkey/MacHotKeys.h"
#include "platform/macos/overlay/MacOverlayWindows.h"
#include "platform/macos/settings/MacSettingsWindows.h"
#include "platform/macos/statusitem/MacStatusBar.h"
#include "platform/macos/support/MacClock.h"
#include "platform/macos/support/MacMainQueue.h"
#include "platform/macos/windows/MacAccessibility.h"
#include "platform/macos/windows/MacApplications.h"
#include "platform/macos/windows/MacScreens.h"
#include "platform/macos/windows/MacWindowList.h"
#include "platform/posix/PosixFileSystem.h"

namespace corvane::macos {

/// Everything of macOS that the portable application uses.
class MacPlatform : public platform::Platform {
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
    platform::WindowList &windowList() override { return windowList_; }
    platform::Workspace &workspace() override { return workspace_; }

  private:
    MacAccessibility accessibility_;
    MacAlerts alerts_;
    MacApplication application_;
    MacApplications applications_;
    MacClock clock_;
    posix::PosixFileSystem fileSystem_;
    MacHotKeys hotKeys_;
    MacLocalisation localisation_;
    MacLoginItem loginItem_;
    MacMainQueue mainQueue_;
    MacCommandEndpoint commandEndpoint_{mainQueue_};
    MacMouseEvents mouseEvents_;
    MacOverlayWindows overlayWindows_;
    MacScreens screens_;
    MacSettingsWindows settingsWindows_;
    MacStatusBar statusBar_;
    MacWindowList windowList_;
    MacWorkspace workspace_;
};

} // namespace corvane::macos
