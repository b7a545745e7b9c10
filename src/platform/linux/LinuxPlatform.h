#pragma once

#include "platform/Platform.h"
#include "platform/drawing/SymbolImages.h"
#include "platform/freedesktop/applications/Workspace.h"
#include "platform/freedesktop/autostart/LoginItem.h"
#include "platform/freedesktop/presence/UserSession.h"
#include "platform/linux/StatusItem.h"
#include "platform/linux/WindowSystem.h"
#include "platform/linux/commands/CommandEndpoint.h"
#include "platform/linux/environment/Localisation.h"
#include "platform/linux/timing/Clock.h"
#include "platform/linux/timing/MainQueue.h"
#include "platform/posix/PosixFileSystem.h"
#include "platform/qt/Application.h"
#include "platform/qt/alerts/Alerts.h"
#include "platform/qt/settings/SettingsWindows.h"

#include <functional>
#include <memory>
#include <utility>

namespace corvane::wayland {

class Events;

} // namespace corvane::wayland

namespace corvane::x11 {

class XcbConnection;
class XcbEvents;

} // namespace corvane::x11

namespace corvane::linux {

/// The Linux desktop: an X server, or a Wayland compositor with XWayland. Made on the main thread,
/// after the Qt application.
class LinuxPlatform : public platform::Platform {
  public:
    /// The program handles `firstCommand` when it is up, if there is one. Other programs' windows
    /// are watched through a connection that is for nothing else. With a compositor's events,
    /// where it lets programs click, it is the window system instead of the X server; null without.
    /// Under other compositors the desktop's portal is used where it has all that is needed. The
    /// events outlive the platform.
    LinuxPlatform(x11::XcbEvents &events, std::unique_ptr<x11::XcbConnection> windowConnection,
                  wayland::Events *compositor = nullptr, const CommandRequest &firstCommand = {});

    platform::Accessibility &accessibility() override { return facilities_.accessibility; }
    platform::Alerts &alerts() override { return alerts_; }
    platform::Application &application() override { return application_; }
    platform::Applications &applications() override { return facilities_.applications; }
    platform::ContinuousClock &clock() override { return clock_; }
    platform::CommandEndpoint &commandEndpoint() override { return commandEndpoint_; }
    platform::FileSystem &fileSystem() override { return fileSystem_; }
    platform::HotKeys &hotKeys() override { return facilities_.hotKeys; }
    platform::Localisation &localisation() override { return localisation_; }
    platform::LoginItem &loginItem() override { return loginItem_; }
    platform::MainQueue &mainQueue() override { return mainQueue_; }
    platform::MouseEvents &mouseEvents() override { return facilities_.mouseEvents; }
    platform::OverlayWindows &overlayWindows() override { return facilities_.overlayWindows; }
    platform::Screens &screens() override { return facilities_.screens; }
    platform::SettingsWindows &settingsWindows() override { return settingsWindows_; }
    platform::StatusBar &statusBar() override { return statusBar_; }
    platform::UserSession &userSession() override { return userSession_; }
    platform::WindowList &windowList() override { return facilities_.windowList; }
    platform::Workspace &workspace() override { return workspace_; }

    /// Calls `changed` on the main thread whenever the user gives the right to click or takes it
    /// back.
    void whenPermissionChanges(const std::function<void()> &changed) {
        windowSystem_->whenPermissionChanges(changed);
    }

  private:
    posix::PosixFileSystem fileSystem_;
    Clock clock_;
    MainQueue mainQueue_;
    CommandEndpoint commandEndpoint_;
    Localisation localisation_;
    qt::Application application_;
    drawing::SymbolImages symbols_;
    const std::unique_ptr<WindowSystem> windowSystem_;
    const WindowSystem::Facilities facilities_;
    freedesktop::LoginItem loginItem_;
    freedesktop::Workspace workspace_;
    qt::Alerts alerts_;
    StatusBar statusBar_;
    qt::SettingsWindows settingsWindows_;
    freedesktop::UserSession userSession_;
};

} // namespace corvane::linux
