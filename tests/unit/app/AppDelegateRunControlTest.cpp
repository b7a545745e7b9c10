#include "overlay/ZoneOverlayWindow.h"
#include "support/AppDelegateTest.h"

#include <limits>
#include <thread>

namespace corvane {
namespace {

class AppDelegateRunControlTest : public testing::AppDelegateTest {
  protected:
    void SetUp() override { launch(); }

    void defineZone(const CodableRect &zone) {
        state().config.clickMode = ClickMode::zone;
        state().config.zoneRect = zone;
    }

    std::shared_ptr<testing::RecordedOverlay> zoneOverlay() {
        for (const auto &overlay : platform.overlayWindows().visible()) {
            if (overlay->window.level == window_level::status) {
                return overlay;
            }
        }
        return nullptr;
    }

    void stopAndAwait() {
        delegate->stopClicking();
        awaitIdle();
    }
};

TEST_F(AppDelegateRunControlTest, AStartWithoutTrustIsRefused) {
    platform.accessibility().isTrusted = false;
    for (int attempt = 1; attempt <= 2; ++attempt) {
        delegate->startClicking();
        platform.mainQueue().turnUntilIdle();
        EXPECT_EQ(state().status, ClickStatus::idle);
        EXPECT_FALSE(state().isAccessibilityGranted);
        EXPECT_EQ(logged("Cannot start: accessibility not granted"), attempt);
        EXPECT_EQ(platform.accessibility().settingsOpened, attempt);
    }
    EXPECT_NE(statusItem().find("Open Accessibility Settings..."), nullptr);
    EXPECT_TRUE(platform.alerts().shown.empty());
    EXPECT_EQ(platform.mouseEvents().openedSessions(), 0U);
}

TEST_F(AppDelegateRunControlTest, ARunClicksCountsAndIsShown) {
    state().config.clickRate = 10;
    startRunning();
    EXPECT_EQ(state().status, ClickStatus::running);
    EXPECT_EQ(statusItem().titles().front(), "Running (1 clicks)");
    EXPECT_TRUE(statusItem().icon->dot);
    EXPECT_EQ(logged("Starting clicker: mode=cursor interval=0.1s maxClicks=0"), 1);

    stopAndAwait();
    EXPECT_EQ(statusItem().titles().front(), "Idle");
    EXPECT_FALSE(statusItem().icon->dot);
    EXPECT_EQ(state().clickCount, 1);
}

TEST_F(AppDelegateRunControlTest, ARunIsShownBeforeItsFirstClick) {
    delegate->startClicking();
    EXPECT_EQ(statusItem().titles().front(), "Running");
    EXPECT_TRUE(statusItem().icon->dot);
    platform.mainQueue().turnUntilIdle();
    stopAndAwait();
}

TEST_F(AppDelegateRunControlTest, ARateBelowOneIsLoggedAsOneSecond) {
    state().config.clickRate = 0;
    state().config.timeUnit = TimeUnit::hours;
    startRunning();
    EXPECT_EQ(logged("Starting clicker: mode=cursor interval=1.0s maxClicks=0"), 1);
    stopAndAwait();
}

TEST_F(AppDelegateRunControlTest, TheHotKeyStartsAndStops) {
    platform.hotKeys().press();
    platform.mainQueue().turnUntilIdle();
    EXPECT_EQ(state().status, ClickStatus::running);
    platform.hotKeys().press();
    awaitIdle();
    EXPECT_EQ(logged("Clicker started: mode=cursor interval=1.0s maxClicks=0"), 1);
}

TEST_F(AppDelegateRunControlTest, TheStatusChangesOnlyAfterTheEngineHasStopped) {
    startRunning();
    delegate->stopClicking();
    EXPECT_EQ(state().status, ClickStatus::running);
    awaitIdle();
}

TEST_F(AppDelegateRunControlTest, TheModeCommandsChangeOnlyTheConfiguration) {
    startRunning();
    delegate->setModeZone();
    EXPECT_EQ(state().config.clickMode, ClickMode::zone);
    EXPECT_TRUE(statusItem().find("Defined Zone")->isOn);
    settle();
    EXPECT_NE(configFile().find(R"("clickMode" : "zone")"), std::string::npos);
    EXPECT_EQ(state().status, ClickStatus::running);
    delegate->setModeCursor();
    settle();
    EXPECT_NE(configFile().find(R"("clickMode" : "cursor")"), std::string::npos);
    stopAndAwait();
}

TEST_F(AppDelegateRunControlTest, AZoneRunShowsItsOutlineUntilItIsStopped) {
    defineZone({100, 200, 300, 150});
    platform.mouseEvents().setCursor({150, 250});
    startRunning();
    ASSERT_NE(zoneOverlay(), nullptr);
    EXPECT_EQ(zoneOverlay()->frame, (Rectangle{100, 730, 300, 174}));
    delegate->stopClicking();
    EXPECT_EQ(zoneOverlay(), nullptr);
    EXPECT_EQ(state().status, ClickStatus::running);
    awaitIdle();
}

TEST_F(AppDelegateRunControlTest, AZoneRunWithoutAZoneClicksEverywhereWithoutAnOutline) {
    state().config.clickMode = ClickMode::zone;
    startRunning();
    EXPECT_EQ(zoneOverlay(), nullptr);
    EXPECT_EQ(state().clickCount, 1);
    stopAndAwait();
}

TEST_F(AppDelegateRunControlTest, EveryClickShowsARippleUntilItsAnimationEnds) {
    platform.mouseEvents().setCursor({300, 100});
    state().config.clickRate = 10;
    startRunning();
    ASSERT_EQ(platform.overlayWindows().visible().size(), 1U);
    const auto ripple = platform.overlayWindows().visible().front();
    EXPECT_EQ(ripple->frame, (Rectangle{275, 955, 50, 50}));
    EXPECT_TRUE(ripple->isAnimating());

    platform.clock().advance(std::chrono::milliseconds(100));
    ASSERT_TRUE(platform.mainQueue().turnUntil([this] { return state().clickCount == 2; }));
    EXPECT_EQ(platform.overlayWindows().visible().size(), 2U);
    stopAndAwait();
    EXPECT_EQ(platform.overlayWindows().visible().size(), 2U);
    platform.overlayWindows().completeAnimations();
    EXPECT_TRUE(platform.overlayWindows().living().empty());
}

TEST_F(AppDelegateRunControlTest, TheLimitEndsARunLikeAManualStop) {
    anchorZone();
    state().config.clickMode = ClickMode::zone;
    state().config.maxClicks = 1;
    platform.mouseEvents().setCursor({150, 300});
    delegate->startClicking();
    platform.mainQueue().turnUntilIdle();
    awaitIdle();
    EXPECT_EQ(logged("Clicker finished after 1 clicks (limit reached)"), 1);
    EXPECT_EQ(state().clickCount, 1);
    EXPECT_EQ(zoneOverlay(), nullptr);
    const int readings = platform.accessibility().windowReadings;
    platform.advance(std::chrono::milliseconds(160));
    EXPECT_EQ(platform.accessibility().windowReadings, readings);
}

TEST_F(AppDelegateRunControlTest, AnAnchoredZoneFollowsItsWindow) {
    anchorZone();
    state().config.clickMode = ClickMode::zone;
    platform.mouseEvents().setCursor({0, 0});
    startRunning();
    EXPECT_EQ(logged("Resolved window anchor: zone at (130.0, 260.0, 200.0, 80.0)"), 1);
    ASSERT_NE(zoneOverlay(), nullptr);
    EXPECT_EQ(zoneOverlay()->frame, (Rectangle{130, 740, 200, 104}));
    EXPECT_EQ(state().clickCount, 0);

    platform.accessibility().windowsByProcess[7].front().position = Point{400, 50};
    platform.mouseEvents().setCursor({430, 110});
    platform.advance(std::chrono::milliseconds(16));
    EXPECT_EQ(zoneOverlay()->frame, (Rectangle{430, 890, 200, 104}));
    platform.clock().advance(std::chrono::seconds(1));
    ASSERT_TRUE(platform.mainQueue().turnUntil([this] { return state().clickCount == 1; }));
    stopAndAwait();
}

TEST_F(AppDelegateRunControlTest, ALostWindowLeavesTheZoneWhereItWas) {
    anchorZone();
    state().config.clickMode = ClickMode::zone;
    platform.mouseEvents().setCursor({150, 300});
    startRunning();
    const Rectangle before = zoneOverlay()->frame;
    platform.accessibility().windowsByProcess.clear();
    platform.advance(std::chrono::milliseconds(160));
    EXPECT_EQ(zoneOverlay()->frame, before);

    platform.accessibility().windowsByProcess[7] = {
        {.title = "Report (edited)", .position = Point{0, 0}, .size = Size{10, 10}}};
    platform.advance(std::chrono::milliseconds(16));
    EXPECT_EQ(zoneOverlay()->frame, (Rectangle{30, 940, 200, 104}));
    stopAndAwait();
}

TEST_F(AppDelegateRunControlTest, WithoutScreensTheOutlineIsNotMoved) {
    anchorZone();
    state().config.clickMode = ClickMode::zone;
    startRunning();
    const Rectangle before = zoneOverlay()->frame;
    platform.screens().list.clear();
    platform.accessibility().windowsByProcess[7].front().position = Point{400, 50};
    platform.advance(std::chrono::milliseconds(16));
    EXPECT_EQ(zoneOverlay()->frame, before);
    stopAndAwait();
}

TEST_F(AppDelegateRunControlTest, AnAnchorIsResolvedInCursorModeTooWithoutAnOutline) {
    anchorZone();
    startRunning();
    EXPECT_EQ(logged("Resolved window anchor: zone at (130.0, 260.0, 200.0, 80.0)"), 1);
    EXPECT_EQ(zoneOverlay(), nullptr);
    const int readings = platform.accessibility().windowReadings;
    platform.advance(std::chrono::milliseconds(16));
    EXPECT_GT(platform.accessibility().windowReadings, readings);
    stopAndAwait();
}

TEST_F(AppDelegateRunControlTest, AnAnchorWithoutAZoneIsNotResolved) {
    anchorZone();
    state().config.zoneRect.reset();
    platform.applications().runningApplications.clear();
    startRunning();
    EXPECT_TRUE(platform.alerts().shown.empty());
    stopAndAwait();
}

TEST_F(AppDelegateRunControlTest, AMissingWindowAsksAndCancelChangesNothing) {
    anchorZone();
    state().clickCount = 5;
    platform.applications().runningApplications.clear();
    platform.alerts().answers = {{.button = 1}};
    delegate->startClicking();
    platform.mainQueue().turnUntilIdle();
    const Alert expected{.style = AlertStyle::warning,
                         .messageText = "Window not found",
                         .informativeText = "The anchored window \"Editor\" could not be found. "
                                            "Using the last known absolute position.",
                         .buttons = {"Continue", "Cancel"}};
    EXPECT_EQ(platform.alerts().shown, std::vector{expected});
    EXPECT_EQ(state().status, ClickStatus::idle);
    EXPECT_EQ(state().clickCount, 5);
    EXPECT_EQ(platform.mouseEvents().openedSessions(), 0U);
}

TEST_F(AppDelegateRunControlTest, EveryStartAsksForAWindowThatIsStillMissing) {
    anchorZone();
    platform.applications().runningApplications.clear();
    for (std::size_t questions = 1; questions <= 2; ++questions) {
        delegate->startClicking();
        platform.mainQueue().turnUntilIdle();
        EXPECT_EQ(platform.alerts().shown.size(), questions);
    }
}

TEST_F(AppDelegateRunControlTest, AMissingWindowMayBeReplacedByTheLastPosition) {
    anchorZone();
    state().config.clickMode = ClickMode::zone;
    platform.accessibility().windowsByProcess.clear();
    platform.alerts().answers = {{.button = 0}};
    platform.mouseEvents().setCursor({2, 3});
    startRunning();
    EXPECT_EQ(zoneOverlay()->frame, (Rectangle{1, 998, 200, 104}));
    EXPECT_EQ(state().clickCount, 1);
    const int readings = platform.accessibility().windowReadings;
    platform.advance(std::chrono::milliseconds(160));
    EXPECT_EQ(platform.accessibility().windowReadings, readings);
    stopAndAwait();
}

TEST_F(AppDelegateRunControlTest, TheHotKeyAsksNoSecondTimeWhileTheQuestionIsOpen) {
    anchorZone();
    platform.applications().runningApplications.clear();
    platform.alerts().whileShown = [this](const Alert &) {
        platform.hotKeys().press();
        platform.mainQueue().turn();
    };
    delegate->startClicking();
    platform.mainQueue().turnUntilIdle();
    EXPECT_EQ(platform.alerts().shown.size(), 1U);
    EXPECT_EQ(state().status, ClickStatus::idle);
}

TEST_F(AppDelegateRunControlTest, AWindowThatComesBackDuringTheQuestionStartsNoRunUnderIt) {
    anchorZone();
    platform.applications().runningApplications.clear();
    platform.alerts().whileShown = [this](const Alert &) {
        anchorZone();
        platform.hotKeys().press();
        platform.mainQueue().turnUntilIdle();
        EXPECT_EQ(state().status, ClickStatus::idle);
    };
    delegate->startClicking();
    platform.mainQueue().turnUntilIdle();
    EXPECT_EQ(platform.alerts().shown.size(), 1U);
}

TEST_F(AppDelegateRunControlTest, AStartRightAfterAStopGoesOn) {
    startRunning();
    delegate->stopClicking();
    delegate->startClicking();
    platform.mainQueue().turnUntilIdle();
    ASSERT_TRUE(platform.mainQueue().turnUntil([this] { return state().clickCount == 1; }));
    EXPECT_EQ(state().status, ClickStatus::running);
    stopAndAwait();
    EXPECT_EQ(logged("Clicker started: mode=cursor interval=1.0s maxClicks=0"), 2);
    EXPECT_EQ(logged("Clicker stopped after 1 clicks"), 2);
}

TEST_F(AppDelegateRunControlTest, ALateEndOfAnEarlierRunDoesNotEndTheNext) {
    state().config.maxClicks = 1;
    delegate->startClicking();
    platform.mainQueue().turn();
    // The click's report and the end's wait in the queue when the run's mouse is given back.
    ASSERT_TRUE(platform.mouseEvents().awaitPosted(2));
    while (platform.mouseEvents().openSessions() > 0) {
        std::this_thread::yield();
    }
    ASSERT_EQ(platform.mainQueue().queuedCount(), 2U);

    state().config.maxClicks = 0;
    delegate->startClicking();
    platform.mainQueue().turnUntilIdle();
    ASSERT_TRUE(platform.clock().awaitBlocked());
    platform.mainQueue().turnUntilIdle();
    EXPECT_EQ(state().status, ClickStatus::running);
    stopAndAwait();
}

TEST_F(AppDelegateRunControlTest, TheHotKeyIsUrgentWhileClicksAreMade) {
    EXPECT_FALSE(platform.hotKeys().isUrgent);
    startRunning();
    EXPECT_TRUE(platform.hotKeys().isUrgent);
    platform.hotKeys().press();
    awaitIdle();
    EXPECT_FALSE(platform.hotKeys().isUrgent);
}

TEST_F(AppDelegateRunControlTest, AMainThreadThatIsBusyIsWaitedFor) {
    state().config.clickRate = std::numeric_limits<std::int64_t>::max();
    delegate->startClicking();
    platform.mainQueue().turnUntilIdle();
    // Nothing turns the main queue now.
    ASSERT_TRUE(platform.clock().awaitBlocked());
    const std::size_t eventsPerClick = 2;
    EXPECT_LE(platform.mouseEvents().posted().size(), 40 * eventsPerClick);
    platform.clock().advance(std::chrono::seconds(10));
    ASSERT_TRUE(platform.clock().awaitBlocked());
    const std::size_t before = platform.mouseEvents().posted().size();
    delegate->stopClicking();
    awaitIdle();
    EXPECT_EQ(platform.mouseEvents().posted().size(), before);
}

/// A session that cannot be clicked in, and how the log and the command line say so.
struct UnusableSession {
    platform::SessionState state;
    const char *reason;
};

class UnusableSessionTest : public AppDelegateRunControlTest,
                            public ::testing::WithParamInterface<UnusableSession> {};

TEST_P(UnusableSessionTest, EndsTheRunAndTheLogSaysWhy) {
    startRunning();
    platform.userSession().become(GetParam().state);
    EXPECT_EQ(logged(std::string("Ending the run: ") + GetParam().reason), 1);
    awaitIdle();
    EXPECT_EQ(logged("Clicker stopped after 1 clicks"), 1);
    EXPECT_FALSE(platform.mouseEvents().isButtonPressed());
}

TEST_P(UnusableSessionTest, RefusesEveryStartUntilItIsActiveAgain) {
    platform.userSession().become(GetParam().state);
    delegate->startClicking();
    delegate->toggleClicking();
    settle();
    EXPECT_EQ(state().status, ClickStatus::idle);
    EXPECT_EQ(logged(std::string("Cannot start: ") + GetParam().reason), 2);
    EXPECT_EQ(logged(std::string("Ending the run: ") + GetParam().reason), 0);
    EXPECT_TRUE(platform.mouseEvents().posted().empty());

    platform.userSession().become(platform::SessionState::active);
    EXPECT_EQ(state().status, ClickStatus::idle);
    startRunning();
    EXPECT_EQ(state().status, ClickStatus::running);
}

TEST_P(UnusableSessionTest, DisablesTheMenusStartUntilItIsActiveAgain) {
    platform.userSession().become(GetParam().state);
    EXPECT_FALSE(statusItem().find("Start")->isEnabled);
    platform.userSession().become(platform::SessionState::active);
    EXPECT_TRUE(statusItem().find("Start")->isEnabled);
}

TEST_P(UnusableSessionTest, IsTheReasonThatACommandGetsForARefusedStart) {
    platform.userSession().become(GetParam().state);
    platform.commandEndpoint().send({"start"});
    settle();
    EXPECT_EQ(
        platform.commandEndpoint().replies,
        (std::vector{CommandReply{.result = CommandResult::refused, .error = GetParam().reason}}));
    EXPECT_EQ(logged(std::string("Cannot start: ") + GetParam().reason), 1);
}

INSTANTIATE_TEST_SUITE_P(
    States, UnusableSessionTest,
    ::testing::Values(UnusableSession{platform::SessionState::locked, "the session is locked"},
                      UnusableSession{platform::SessionState::otherUser,
                                      "another user's session has the screen"}),
    [](const auto &each) {
        return each.param.state == platform::SessionState::locked ? "locked" : "otherUser";
    });

} // namespace
} // namespace corvane
