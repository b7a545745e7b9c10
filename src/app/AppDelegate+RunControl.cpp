#include "app/AnchorTracking.h"
#include "app/AppDelegate.h"
#include "app/SharedServices.h"
#include "overlay/RippleWindow.h"
#include "overlay/ZoneOverlayWindow.h"
#include "platform/Accessibility.h"
#include "platform/Alerts.h"
#include "platform/MainQueue.h"
#include "platform/Platform.h"
#include "platform/Screens.h"
#include "platform/UserSession.h"
#include "services/ClickBacklog.h"
#include "services/DynamicZoneRect.h"
#include "state/Availability.h"
#include "support/Localised.h"
#include "support/Log.h"
#include "support/NumberText.h"

#include <string>

namespace corvane {

void AppDelegate::startClicking() { startRun(); }

void AppDelegate::stopClicking() { stopRun(); }

void AppDelegate::toggleClicking() {
    if (appState_.status == ClickStatus::running) {
        stopRun();
    } else {
        startRun();
    }
}

void AppDelegate::setModeCursor() { setMode(ClickMode::cursor); }

void AppDelegate::setModeZone() { setMode(ClickMode::zone); }

void AppDelegate::setMode(ClickMode mode) {
    appState_.config.clickMode = mode;
    appState_.saveConfig();
    statusBarController_.rebuildMenu();
}

void AppDelegate::startRun() {
    // The alert of a start under way keeps the main queue turning: the hot key may come again.
    if (isAskingToStart_ || !checkSession() || !checkPermissionToStart()) {
        return;
    }
    if (const auto plan = planRun()) {
        beginRun(*plan);
    }
}

/// Clicks must not reach the login screen or another user's desktop.
bool AppDelegate::checkSession() const {
    const auto obstacle = sessionObstacle(platform_.userSession().state());
    if (obstacle) {
        log("Cannot start: " + reasonFor(*obstacle));
    }
    return !obstacle;
}

void AppDelegate::sessionChanged() {
    const auto obstacle = sessionObstacle(platform_.userSession().state());
    if (obstacle && appState_.status == ClickStatus::running) {
        log("Ending the run: " + reasonFor(*obstacle));
        stopRun();
    }
}

bool AppDelegate::checkPermissionToStart() {
    appState_.isAccessibilityGranted = platform_.accessibility().isProcessTrusted();
    if (!appState_.isAccessibilityGranted) {
        log("Cannot start: accessibility not granted");
        openAccessibilitySettings();
        statusBarController_.rebuildMenu();
    }
    return appState_.isAccessibilityGranted;
}

std::optional<AppDelegate::RunPlan> AppDelegate::planRun() {
    RunPlan plan{.config = appState_.config};
    if (!plan.config.windowAnchor || !plan.config.zoneRect) {
        return plan;
    }
    const WindowAnchor &anchor = *plan.config.windowAnchor;
    if (const auto resolved = shared_.windowResolver.resolve(anchor)) {
        log("Resolved window anchor: zone at " + rectangleText(resolved->zone));
        plan.dynamicZone = std::make_shared<DynamicZoneRect>(resolved->zone);
        plan.config.zoneRect = CodableRect::of(resolved->zone);
        followWindow(anchor, plan.dynamicZone);
    } else if (!continueAtLastPosition(anchor)) {
        return std::nullopt;
    }
    return plan;
}

void AppDelegate::followWindow(const WindowAnchor &anchor,
                               std::shared_ptr<DynamicZoneRect> dynamicZone) {
    anchorTrackingTask_ = std::make_unique<AnchorTracking>(
        platform_.mainQueue(), shared_.windowResolver, anchor, std::move(dynamicZone),
        weakly([](AppDelegate &self, const Rectangle &zone) {
            const auto height = self.primaryScreenHeight();
            if (self.zoneOverlayWindow_ && height) {
                self.zoneOverlayWindow_->moveTo(zone, *height);
            }
        }));
}

bool AppDelegate::continueAtLastPosition(const WindowAnchor &anchor) {
    const Alert alert{.style = AlertStyle::warning,
                      .messageText = localised("Window not found"),
                      .informativeText = localisedFormat(
                          "The anchored window \"%@\" could not be found. Using the last known "
                          "absolute position.",
                          {anchor.appName(platform_.applications())}),
                      .buttons = {localised("Continue"), localised("Cancel")}};
    isAskingToStart_ = true;
    const AlertResponse response = platform_.alerts().runModal(alert);
    isAskingToStart_ = false;
    return response.isFirstButton();
}

void AppDelegate::beginRun(const RunPlan &plan) {
    const CorvaneConfig &config = plan.config;
    setRunning(true);
    appState_.clickCount = 0;
    refreshStatusBar();
    if (config.clickMode == ClickMode::zone && config.zoneRect) {
        showZoneOverlay(config.zoneRect->rectangle());
    }
    log("Starting clicker: mode=" + std::string(storedValue(config.clickMode)) + " interval=" +
        decimalText(config.clickInterval()) + "s maxClicks=" + std::to_string(config.maxClicks));

    const std::uint64_t run = ++runNumber_;
    // Called on the run's own thread, which may outlive the delegate.
    const auto onMainThread = [held = weak_from_this(), &mainQueue = platform_.mainQueue(),
                               run](const auto &work) {
        mainQueue.post([held, run, work] {
            if (const auto self = held.lock(); self && self->runNumber_ == run) {
                work(*self);
            }
        });
    };
    platform_.mainQueue().post(weakly([plan, onMainThread](AppDelegate &self) {
        const auto backlog = std::make_shared<ClickBacklog>();
        self.shared_.clickerService.start(
            plan.config, plan.dynamicZone,
            [onMainThread, backlog](std::int64_t count, Point point) {
                backlog->clickMade();
                onMainThread([backlog, count, point](AppDelegate &current) {
                    current.runProgressed(count, point);
                    backlog->clickShown();
                });
            },
            [onMainThread] { onMainThread([](AppDelegate &current) { current.stopRun(); }); },
            backlog);
    }));
}

void AppDelegate::runProgressed(std::int64_t count, Point point) {
    appState_.clickCount = count;
    refreshStatusBar();
    showRipple(point);
}

void AppDelegate::stopRun() {
    anchorTrackingTask_.reset();
    zoneOverlayWindow_.reset();
    platform_.mainQueue().post(weakly([run = runNumber_](AppDelegate &self) {
        // A run begun meanwhile has its engine start queued behind this.
        self.shared_.clickerService.stop();
        if (self.runNumber_ == run && self.appState_.status == ClickStatus::running) {
            self.setRunning(false);
        }
        self.refreshStatusBar();
    }));
}

/// While clicks are made the hot key must be heard whatever has the keyboard.
void AppDelegate::setRunning(bool isRunning) {
    appState_.status = isRunning ? ClickStatus::running : ClickStatus::idle;
    hotkeyService_.setUrgent(isRunning);
}

void AppDelegate::showZoneOverlay(const Rectangle &zone) {
    zoneOverlayWindow_ = std::make_unique<ZoneOverlayWindow>(platform_.overlayWindows(), zone,
                                                             primaryScreenHeight());
    zoneOverlayWindow_->orderFront();
}

void AppDelegate::showRipple(Point point) {
    const auto ripple =
        std::make_shared<RippleWindow>(platform_.overlayWindows(), point, primaryScreenHeight());
    rippleWindows_.insert(ripple);
    ripple->orderFront();
    ripple->animate(weakly([held = std::weak_ptr(ripple)](AppDelegate &self) {
        if (const auto finished = held.lock()) {
            finished->orderOut();
            self.rippleWindows_.erase(finished);
        }
    }));
}

std::optional<double> AppDelegate::primaryScreenHeight() const {
    const auto screens = platform_.screens().screens();
    return screens.empty() ? std::nullopt : std::optional(screens.front().frame.height);
}

} // namespace corvane
