#pragma once

#include "app/HotkeyService.h"
#include "app/LaunchCause.h"
#include "model/ClickMode.h"
#include "model/CorvaneConfig.h"
#include "presentation/Menu.h"
#include "services/ZonePickerService.h"
#include "support/Geometry.h"
#include "ui/StatusBarController.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <utility>

namespace corvane {

namespace platform {
class Platform;
class Timer;
} // namespace platform
class AnchorTracking;
class AppState;
class CommandService;
class ConfigWindow;
class DynamicZoneRect;
class RippleWindow;
class SettingsTab;
class ZoneOverlayWindow;
struct SharedServices;

/// The surface every command arrives at, and the owner of the user-interface objects. Main thread.
///
/// Each subject has a source file of its own: AppDelegate (the command table), AppDelegate+Launch,
/// AppDelegate+RunControl, AppDelegate+ZoneSelection, AppDelegate+Profiles, AppDelegate+Settings,
/// AppDelegate+NoStatusBar (a desktop that shows no status items).
class AppDelegate : public std::enable_shared_from_this<AppDelegate> {
  public:
    /// Both outlive the delegate.
    AppDelegate(platform::Platform &platform, SharedServices &shared);
    ~AppDelegate();

    AppDelegate(const AppDelegate &) = delete;
    AppDelegate &operator=(const AppDelegate &) = delete;

    /// Shows the status item at once, then loads the files and registers the hot key.
    void applicationDidFinishLaunching(LaunchCause cause = LaunchCause::user);

    /// Stops clicking, gives the hot key back and takes no more commands.
    void applicationWillTerminate();

    /// The user started the program again while it runs: shows where it is.
    void applicationShouldHandleReopen();

    /// What the status item offers now.
    Menu menu() const;

    bool isHotkeyRegistered() const;

    /// Carries out a menu command by its name; an unknown one does nothing.
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
    /// Asks for a name and saves the present configuration under it.
    void saveAsProfile();
    /// Brings the settings window to the front; a closed one is replaced by a new one.
    void showConfig();
    void toolbarTabSelected(const std::string &identifier);

  private:
    /// A callback that does nothing once the delegate is gone.
    template <typename Work>
    auto weakly(Work work) {
        return [held = weak_from_this(), work = std::move(work)](const auto &...arguments) {
            if (const auto self = held.lock()) {
                std::invoke(work, *self, arguments...);
            }
        };
    }

    void terminate();
    void refreshStatusBar();

    void finishLaunching(LaunchCause cause);
    void startAccessibilityPolling(std::function<void(bool isTrusted)> callback);
    void accessibilityChecked(bool isTrusted);
    void registerHotkey();
    void listenForCommands();
    void retryHotkey();
    void awaitStatusBar(LaunchCause cause);
    void startWithoutStatusBar();
    void tellOfMissingStatusBar();

    /// A start under way: what it will run with.
    struct RunPlan {
        CorvaneConfig config;
        /// Present when the zone follows a window.
        std::shared_ptr<DynamicZoneRect> dynamicZone{};
    };

    void startRun();
    void stopRun();
    void setRunning(bool isRunning);
    bool checkSession() const;
    void sessionChanged();
    bool checkPermissionToStart();
    std::optional<RunPlan> planRun();
    bool continueAtLastPosition(const WindowAnchor &anchor);
    void followWindow(const WindowAnchor &anchor, std::shared_ptr<DynamicZoneRect> dynamicZone);
    void beginRun(const RunPlan &plan);
    void runProgressed(std::int64_t count, Point point);
    void showZoneOverlay(const Rectangle &zone);
    void showRipple(Point point);
    std::optional<double> primaryScreenHeight() const;
    void setMode(ClickMode mode);

    void pickZone();
    void zonePicked(const std::optional<ZonePickResult> &result);

    void reopenConfig();
    std::shared_ptr<SettingsTab> makeTab(const std::string &identifier);
    std::shared_ptr<SettingsTab> makeGeneralTab();
    std::shared_ptr<SettingsTab> makeProfilesTab();
    void saveSettings(const CorvaneConfig &config);
    void removeAnchor();
    void profilesChanged();

    platform::Platform &platform_;
    SharedServices &shared_;
    AppState &appState_;
    HotkeyService hotkeyService_;
    StatusBarController statusBarController_;
    /// Present once the files are loaded.
    std::shared_ptr<CommandService> commandService_;
    std::unique_ptr<ConfigWindow> configWindow_;
    std::unique_ptr<ZoneOverlayWindow> zoneOverlayWindow_;
    std::unique_ptr<AnchorTracking> anchorTrackingTask_;
    std::unique_ptr<platform::Timer> accessibilityPollTimer_;
    /// Runs while a status bar may still take the item.
    std::unique_ptr<platform::Timer> statusBarTimer_;
    std::set<std::shared_ptr<RippleWindow>> rippleWindows_;
    /// Tells the callbacks of the present run from late ones of the runs before it.
    std::uint64_t runNumber_ = 0;
    bool isAskingToStart_ = false;
    bool isConfigHiddenForPick_ = false;
};

} // namespace corvane
