#include "app/RunController.h"

#include "app/AnchorTracking.h"
#include "app/SharedServices.h"
#include "overlay/ZoneOverlayWindow.h"
#include "platform/Accessibility.h"
#include "platform/HotKeys.h"
#include "platform/MainQueue.h"
#include "platform/Platform.h"
#include "platform/Screens.h"
#include "services/ClickBacklog.h"
#include "services/DynamicZoneRect.h"
#include "state/Availability.h"
#include "support/Localised.h"
#include "support/Log.h"
#include "support/NumberText.h"

#include <string>
#include <utility>

namespace corvane {

RunController::RunController(platform::Platform &platform, SharedServices &shared,
                             std::function<void()> refresh)
    : platform_(platform),
      shared_(shared),
      refresh_(std::move(refresh)),
      ripples_(platform.overlayWindows()) {}

RunController::~RunController() = default;

void RunController::startRun() {
    // The alert of a start under way keeps the main queue turning: the hot key may come again.
    if (isAskingToStart_ || !mayStart()) {
        return;
    }
    if (const auto plan = planRun()) {
        beginRun(*plan);
    }
}

bool RunController::mayStart() {
    AppState &state = shared_.appState;
    state.isAccessibilityGranted = platform_.accessibility().isProcessTrusted();
    const auto obstacle = obstacleTo(ActionID::startClicking, state);
    if (obstacle == Obstacle::notGranted) {
        log("Cannot start: accessibility not granted");
        platform_.accessibility().openSettings();
        refresh_();
    } else if (obstacle) {
        log("Cannot start: " + reasonFor(*obstacle));
    }
    return !obstacle;
}

std::optional<RunController::RunPlan> RunController::planRun() {
    RunPlan plan{.config = shared_.appState.config};
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

void RunController::followWindow(const WindowAnchor &anchor,
                                 std::shared_ptr<DynamicZoneRect> dynamicZone) {
    anchorTrackingTask_ =
        std::make_unique<AnchorTracking>(platform_.mainQueue(), shared_.windowResolver, anchor,
                                         std::move(dynamicZone), [this](const Rectangle &zone) {
                                             const auto height = primaryScreenHeight();
                                             if (zoneOverlayWindow_ && height) {
                                                 zoneOverlayWindow_->moveTo(zone, *height);
                                             }
                                         });
}

bool RunController::continueAtLastPosition(const WindowAnchor &anchor) {
    const Alert alert{.style = AlertStyle::warning,
                      .messageText = localised("Window not found"),
                      .informativeText = localisedFormat(
                          "The anchored window \"%@\" could not be found. Using the last known "
                          "absolute position.",
                          {anchor.appName(platform_.applications())}),
                      .buttons = {localised("Continue"), localised("Cancel")}};
    isAskingToStart_ = true;
    const AlertResponse response = shared_.alerts.runModal(alert);
    isAskingToStart_ = false;
    return response.isFirstButton();
}

void RunController::beginRun(const RunPlan &plan) {
    const CorvaneConfig &config = plan.config;
    setRunning(true);
    shared_.appState.clickCount = 0;
    refresh_();
    if (config.clickMode == ClickMode::zone && config.zoneRect) {
        showZoneOverlay(config.zoneRect->rectangle());
    }
    log("Starting clicker: mode=" + std::string(storedValue(config.clickMode)) + " interval=" +
        decimalText(config.clickInterval()) + "s maxClicks=" + std::to_string(config.maxClicks));
    ++runNumber_;
    platform_.mainQueue().post(weakly_([plan](RunController &self) { self.startEngine(plan); }));
}

/// The engine's callbacks come on the run's own thread.
void RunController::startEngine(const RunPlan &plan) {
    const auto ifCurrent = weakly_([run = runNumber_](RunController &self, const auto &work) {
        if (self.runNumber_ == run) {
            work(self);
        }
    });
    const auto onMainThread = [ifCurrent, &mainQueue = platform_.mainQueue()](const auto &work) {
        mainQueue.post([ifCurrent, work] { ifCurrent(work); });
    };
    const auto backlog = std::make_shared<ClickBacklog>();
    shared_.clickerService.start(
        plan.config, plan.dynamicZone,
        [onMainThread, backlog](std::int64_t count, Point point) {
            backlog->clickMade();
            onMainThread([backlog, count, point](RunController &current) {
                current.runProgressed(count, point);
                backlog->clickShown();
            });
        },
        [onMainThread] { onMainThread([](RunController &current) { current.stopRun(); }); },
        backlog);
}

void RunController::runProgressed(std::int64_t count, Point point) {
    shared_.appState.clickCount = count;
    refresh_();
    ripples_.show(point, primaryScreenHeight());
}

void RunController::stopRun() {
    anchorTrackingTask_.reset();
    zoneOverlayWindow_.reset();
    platform_.mainQueue().post(weakly_([run = runNumber_](RunController &self) {
        // A run begun meanwhile has its engine start queued behind this.
        self.shared_.clickerService.stop();
        if (self.runNumber_ == run && self.shared_.appState.status == ClickStatus::running) {
            self.setRunning(false);
        }
        self.refresh_();
    }));
}

/// Clicks must not reach the login screen or another user's desktop.
void RunController::sessionChanged() {
    AppState &state = shared_.appState;
    const auto obstacle = sessionObstacle(state.session);
    if (obstacle && state.status == ClickStatus::running) {
        log("Ending the run: " + reasonFor(*obstacle));
        stopRun();
    }
}

/// While clicks are made the hot key has to work whichever program has the keyboard.
void RunController::setRunning(bool isRunning) {
    shared_.appState.status = isRunning ? ClickStatus::running : ClickStatus::idle;
    platform_.hotKeys().setUrgent(isRunning);
}

void RunController::showZoneOverlay(const Rectangle &zone) {
    zoneOverlayWindow_ = std::make_unique<ZoneOverlayWindow>(platform_.overlayWindows(), zone,
                                                             primaryScreenHeight());
    zoneOverlayWindow_->orderFront();
}

std::optional<double> RunController::primaryScreenHeight() const {
    const auto screens = platform_.screens().screens();
    return screens.empty() ? std::nullopt : std::optional(screens.front().frame.height);
}

} // namespace corvane
