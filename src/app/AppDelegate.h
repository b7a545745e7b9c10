#pragma once

#include "app/AppState.h"
#include "app/HotkeyService.h"
#include "app/SharedServices.h"
#include "overlay/RippleWindow.h"
#include "overlay/ZoneOverlayWindow.h"
#include "presentation/Menu.h"
#include "services/DynamicZoneRect.h"
#include "services/ZonePickerService.h"
#include "ui/StatusBarController.h"

#include <cstdint>
#include <list>
#include <memory>
#include <optional>

namespace corvane {

namespace platform {
class Platform;
class Timer;
} // namespace platform
class AnchorTracking;

/// The surface every command arrives at, and the owner of the user-interface objects. Main thread.
///
/// One source file a subject: AppDelegate (the command table), AppDelegate+Launch,
/// AppDelegate+RunControl, AppDelegate+ZoneSelection, AppDelegate+Profiles, AppDelegate+Settings.
class AppDelegate {
  public:
    AppDelegate(platform::Platform &platform, SharedServices &shared);
    ~AppDelegate();

    void applicationDidFinishLaunching();
    void applicationWillTerminate();

    /// Carries out a menu command by its name; an unknown one does nothing.
    void perform(const MenuCommand &command);

    /// The user started the program again while it runs: shows that it is there.
    void applicationShouldHandleReopen();

    void startClicking();
    void stopClicking();
    void toggleClicking();
    void setModeCursor();
    void setModeZone();
    void selectZone();
    void openAccessibilitySettings();

  private:
    void finishLaunching();
    void registerHotkey();
    void startAccessibilityPolling();
    void accessibilityChecked(bool isGranted);

    void startRun();
    void stopRun();
    bool isAllowedToStart();
    void beginRun(CorvaneConfig config, std::shared_ptr<DynamicZoneRect> dynamicZone);
    void runProgressed(std::int64_t count, Point point);
    void showRipple(Point point);
    std::optional<double> primaryScreenHeight() const;
    void setMode(ClickMode mode);
    void refreshStatusBar();

    platform::Platform &platform_;
    AppState &appState_;
    SharedServices &shared_;
    HotkeyService hotkeyService_;
    StatusBarController statusBarController_;
    std::unique_ptr<ZoneOverlayWindow> zoneOverlayWindow_;
    std::unique_ptr<AnchorTracking> anchorTrackingTask_;
    std::unique_ptr<platform::Timer> accessibilityPollTimer_;
    std::list<RippleWindow> ripples_;
    /// Held weakly by every callback that may come later than the delegate's end.
    std::shared_ptr<AppDelegate *> self_;
};

} // namespace corvane
