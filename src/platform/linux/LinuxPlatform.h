#pragma once

#include "platform/Platform.h"
#include "platform/drawing/SymbolImages.h"
#include "platform/freedesktop/applications/Workspace.h"
#include "platform/freedesktop/autostart/LoginItem.h"
#include "platform/freedesktop/presence/UserSession.h"
#include "platform/linux/Accessibility.h"
#include "platform/linux/Applications.h"
#include "platform/linux/StatusBar.h"
#include "platform/linux/commands/CommandEndpoint.h"
#include "platform/linux/environment/Localisation.h"
#include "platform/linux/timing/Clock.h"
#include "platform/linux/timing/MainQueue.h"
#include "platform/posix/PosixFileSystem.h"
#include "platform/qt/Application.h"
#include "platform/qt/alerts/Alerts.h"
#include "platform/qt/settings/SettingsWindows.h"
#include "platform/x11/click/MouseEvents.h"
#include "platform/x11/hotkey/HotKeys.h"
#include "platform/x11/overlay/OverlayWindows.h"
#include "platform/x11/screens/Screens.h"
#include "platform/x11/windows/ClientWindows.h"
#include "platform/x11/windows/WindowList.h"

#include <memory>

namespace corvane::x11 {

class XcbEvents;

} // namespace corvane::x11

namespace corvane::linux {

/// The Linux desktop under X11. Made on the main thread, after the Qt application.
class LinuxPlatform : public platform::Platform {
  public:
    /// The program obeys `firstCommand` when it is up, if there is one. Other programs' windows are
    /// watched through a connection that is for nothing else. The events outlive the platform.
    LinuxPlatform(x11::XcbEvents &events, std::unique_ptr<x11::XcbConnection> windowConnection,
                  const CommandRequest &firstCommand = {});

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
    posix::PosixFileSystem fileSystem_;
    Clock clock_;
    MainQueue mainQueue_;
    CommandEndpoint commandEndpoint_;
    Localisation localisation_;
    qt::Application application_;
    x11::MouseEvents mouseEvents_;
    x11::Screens screens_;
    drawing::SymbolImages symbols_;
    x11::OverlayWindows overlayWindows_;
    x11::WindowList windowList_;
    x11::ClientWindows clientWindows_;
    Applications applications_;
    Accessibility accessibility_;
    x11::HotKeys hotKeys_;
    freedesktop::LoginItem loginItem_;
    freedesktop::Workspace workspace_;
    qt::Alerts alerts_;
    StatusBar statusBar_;
    qt::SettingsWindows settingsWindows_;
    freedesktop::UserSession userSession_;
};

} // namespace corvane::linux
