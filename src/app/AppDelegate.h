#pragma once

#include "app/HotkeyService.h"
#include "app/RunController.h"
#include "app/SettingsController.h"
#include "app/ZoneSelection.h"
#include "model/ClickMode.h"
#include "presentation/Menu.h"
#include "support/WeakCallbacks.h"
#include "ui/StatusBarController.h"

#include <functional>
#include <memory>
#include <string>

namespace corvane {

namespace platform {
class Platform;
class Timer;
} // namespace platform
class AppState;
class CommandService;
struct SharedServices;

/// The surface every command arrives at. It owns the user-interface objects and passes each command
/// on to the one whose subject it is. Main thread.
class AppDelegate {
  public:
    /// Both outlive the delegate.
    AppDelegate(platform::Platform &platform, SharedServices &shared);
    ~AppDelegate();

    AppDelegate(const AppDelegate &) = delete;
    AppDelegate &operator=(const AppDelegate &) = delete;

    /// Shows the status item at once, then loads the files, registers the hot key and calls
    /// `launched`.
    void applicationDidFinishLaunching(std::function<void()> launched = {});

    /// Stops clicking, gives the hot key back and takes no more commands.
    void applicationWillTerminate();

    /// The user started the program again while it runs: shows where it is.
    void applicationShouldHandleReopen();

    /// The system has given or taken back the permission to click: shows that at once and ends a
    /// run that lacks it. The launch checks it anyway.
    void permissionChanged();

    bool isHotkeyRegistered() const;

    /// Whether the user can see the status item.
    bool isStatusItemShown() const;

    /// Carries out a command of the menu.
    void perform(const MenuCommand &command);

    void startClicking();
    void stopClicking();
    void toggleClicking();
    void setModeCursor();
    void setModeZone();
    void selectZone();
    void openAccessibilitySettings();
    /// Applies the profile of that id; does nothing for any other text.
    void loadProfile(const std::string &idText);
    /// Asks for a name and saves the present configuration under it. Refused, with a line in the
    /// log, while another alert is open.
    void saveAsProfile();
    /// Brings the settings window to the front; a closed one is replaced by a new one.
    void showConfig();
    void toolbarTabSelected(const std::string &identifier);

  private:
    void finishLaunching();
    void startAccessibilityPolling(std::function<void(bool isTrusted)> callback);
    void accessibilityChecked(bool isTrusted);
    void sessionChanged();
    void registerHotkey();
    void listenForCommands();
    void setMode(ClickMode mode);
    void refreshStatusBar();

    platform::Platform &platform_;
    SharedServices &shared_;
    AppState &appState_;
    HotkeyService hotkeyService_;
    StatusBarController statusBarController_;
    RunController runs_;
    SettingsController settings_;
    ZoneSelection zoneSelection_;
    /// Present once the files are loaded.
    std::unique_ptr<CommandService> commandService_;
    std::unique_ptr<platform::Timer> accessibilityPollTimer_;
    const WeakCallbacks<AppDelegate> weakly_{*this};
};

} // namespace corvane
