#include "harness/servers/WindowManager.h"

#include "PickTest.h"
#include "harness/actors/Pager.h"
#include "harness/probes/WindowTree.h"

#include <X11/keysym.h>

#include <algorithm>

namespace corvane::desktop {

namespace {

/// In the window, as it is opened.
constexpr Area zone{400, 340, 150, 100};
constexpr Position inZone{460, 390};

Area moved(const Area &area, Position step) {
    return {area.x + step.x, area.y + step.y, area.width, area.height};
}

Position operator+(Position one, Position other) { return {one.x + other.x, one.y + other.y}; }

/// What holds under every window manager.
class WindowManagersTest : public PickTest, public testing::WithParamInterface<const char *> {
  protected:
    WindowManagersTest() : PickTest({.windowManager = windowManagerNamed(GetParam())}) {}

    /// Picks the zone over whatever window is there and anchors it.
    void pickAnchoredZone() {
        openPicker();
        pointer_.drag({zone.x, zone.y}, {zone.x + zone.width, zone.y + zone.height});
        ASSERT_TRUE(answerAlert(XK_Return)) << corvane_->story();
        ASSERT_TRUE(corvane_->waitForLog("Zone anchored to Target")) << corvane_->story();
        ASSERT_TRUE(waitUntilIdle());
    }

    /// Starts a run in the zone that was picked; the pointer is in it.
    void startAnchoredRun() {
        pickAnchoredZone();
        pointer_.moveTo(inZone);
        keyboard_.pressHotKey();
        ASSERT_TRUE(
            corvane_->waitForLog("Resolved window anchor: zone at (400.0, 340.0, 150.0, 100.0)"))
            << corvane_->story();
        ASSERT_TRUE(waitForOutline(zone));
        ASSERT_TRUE(waitForMoreClicks(2)) << corvane_->story();
    }

    bool waitForOutline(const Area &area) {
        return waitUntil([&] { return isOutlined(screenshot(), area); });
    }

    /// Moves the window and checks that the zone goes with it.
    void expectToFollow(Position step) {
        const Position before = pointer_.position();
        client_.move(window_, client_.position(window_) + step);
        shift_ = shift_ + step;
        EXPECT_TRUE(waitForOutline(moved(zone, shift_)));
        pointer_.moveTo(inZone + shift_);
        EXPECT_TRUE(waitForMoreClicks(2)) << corvane_->story();
        pointer_.moveTo(before);
        EXPECT_TRUE(staysQuiet());
        pointer_.moveTo(inZone + shift_);
    }

    Pager pager_{desktop_.connection()};
    std::unique_ptr<CorvaneProcess> corvane_ =
        start({.clickMode = "zone", .clickRate = 20, .zone = zone});

  private:
    /// How far the window has gone.
    Position shift_;
};

TEST_P(WindowManagersTest, WindowsComeUpMoveAndGetClicks) {
    client_.move(window_, {300, 200});
    pointer_.moveTo({350, 260});
    pointer_.click();
    EXPECT_TRUE(client_.waitForClicks(1));
}

TEST_P(WindowManagersTest, AZoneRunIsSeenAndTakesNothingAway) {
    pointer_.moveTo(inZone);
    const xcb_window_t focus = desktop_.connection().focus();
    keyboard_.pressHotKey();
    ASSERT_TRUE(waitForOutline(zone)) << corvane_->story();
    EXPECT_TRUE(hasBadge(screenshot(), zone));
    EXPECT_TRUE(waitUntil([this] { return ringAround(screenshot(), inZone).has_value(); }));
    EXPECT_TRUE(waitForMoreClicks(5)) << corvane_->story();
    EXPECT_EQ(desktop_.connection().focus(), focus);

    // The user's own click on the badge.
    const Position badge{zone.x + 4, zone.y - 12};
    pointer_.moveTo(badge);
    pointer_.click(2);
    EXPECT_TRUE(waitUntil([&] {
        return std::ranges::any_of(client_.events(), [&](const ButtonEvent &event) {
            return event.button == 2 && event.position == badge;
        });
    }));

    keyboard_.pressHotKey();
    ASSERT_TRUE(corvane_->waitForLogBeginning("Clicker stopped after ")) << corvane_->story();
    EXPECT_TRUE(waitUntil([this] { return corvaneWindows(desktop_.connection()).empty(); }));
}

TEST_P(WindowManagersTest, AZonePickedOverAWindowStaysOnIt) {
    startAnchoredRun();
    expectToFollow({140, 60});
    expectToFollow({-230, -130});
}

TEST_P(WindowManagersTest, AWindowThatDrawsItsOwnFrameIsFollowed) {
    client_.close(window_);
    window_ = client_.open({.x = 300, .y = 250, .ownShadow = 24});
    startAnchoredRun();
    expectToFollow({140, 60});
}

TEST_P(WindowManagersTest, AMinimisedWindowLeavesTheZoneUntilItComesBack) {
    startAnchoredRun();
    const int beneath = client_.open({.title = "Other", .x = 200, .y = 180, .width = 700});
    pager_.activate(client_.windowId(window_));
    const Position place = client_.position(window_);
    pager_.minimise(client_.windowId(window_));
    EXPECT_TRUE(waitForMoreClicks(3)) << corvane_->story();
    EXPECT_TRUE(waitForOutline(zone));
    EXPECT_EQ(client_.events().back().window, beneath);

    // It may fly in.
    pager_.activate(client_.windowId(window_));
    ASSERT_TRUE(waitUntil([&] { return client_.position(window_) == place; }));
    expectToFollow({120, -70});
}

TEST_P(WindowManagersTest, AWindowOnAnotherWorkspaceLeavesTheZoneUntilItIsSeen) {
    startAnchoredRun();
    const xcb_window_t window = client_.windowId(window_);
    pager_.moveToWorkspace(window, 1);
    EXPECT_TRUE(waitForOutline(zone));
    pager_.showWorkspace(1);
    EXPECT_TRUE(waitForOutline(zone));
    expectToFollow({120, -70});
    keyboard_.pressHotKey();
    ASSERT_TRUE(corvane_->waitForLogBeginning("Clicker stopped after ")) << corvane_->story();

    pager_.showWorkspace(0);
    keyboard_.pressHotKey();
    ASSERT_TRUE(answerAlert(XK_Escape)) << corvane_->story();
    EXPECT_EQ(corvane_->log().back(), "WindowResolver: no matching window titled 'Target'");
}

TEST_P(WindowManagersTest, DocksAndTheDesktopAreLookedThrough) {
    ClickClient fileManager(desktop_);
    fileManager.open({.title = "Desktop",
                      .className = "Desktop",
                      .x = 0,
                      .y = 0,
                      .width = 1280,
                      .height = 800,
                      .type = "_NET_WM_WINDOW_TYPE_DESKTOP"});
    ClickClient panel(desktop_);
    panel.open({.title = "Dock",
                .className = "Dock",
                .x = zone.x,
                .y = zone.y,
                .width = zone.width,
                .height = zone.height,
                .type = "_NET_WM_WINDOW_TYPE_DOCK"});
    pickAnchoredZone();
    EXPECT_EQ(corvane_->logCount("WindowResolver: detected Target 'Target' under zone center"), 1);

    openPicker();
    pointer_.drag({900, 600}, {1000, 680});
    EXPECT_TRUE(corvane_->waitForLog("Zone selected: (900.0, 600.0, 100.0, 80.0)"))
        << corvane_->story();
    EXPECT_TRUE(waitUntilIdle());
}

TEST_P(WindowManagersTest, AFullscreenWindowIsCoveredAndClicked) {
    const int fullscreen = client_.open({.title = "Full", .isFullscreen = true});
    ASSERT_TRUE(waitUntil([&] { return client_.position(fullscreen) == Position{}; }));
    ASSERT_TRUE(waitUntil([this] { return isWhite(screenshot().at({1200, 700})); }));
    openPicker();
    EXPECT_TRUE(waitUntil([this] { return !isWhite(screenshot().at({1200, 700})); }));
    keyboard_.tap(keyboard_.keyOf(XK_Escape));
    ASSERT_TRUE(waitUntilIdle());

    startAnchoredRun();
    EXPECT_EQ(corvane_->logCount("WindowResolver: detected Target 'Full' under zone center"), 1);
    EXPECT_TRUE(hasBadge(screenshot(), zone));
    EXPECT_TRUE(waitUntil([this] { return ringAround(screenshot(), inZone).has_value(); }));
    EXPECT_EQ(client_.events().back().window, fullscreen);
}

INSTANTIATE_TEST_SUITE_P(All, WindowManagersTest,
                         testing::Values("openbox", "xfwm4", "metacity", "marco", "kwin_x11"),
                         [](const auto &each) { return std::string(each.param); });

} // namespace

} // namespace corvane::desktop
