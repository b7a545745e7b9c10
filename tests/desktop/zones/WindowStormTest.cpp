#include "harness/actors/WindowStorm.h"

#include "PickTest.h"

#include <X11/keysym.h>

namespace corvane::desktop {

namespace {

/// Windows go faster than they can be looked at.
class WindowStormTest : public PickTest {
  protected:
    explicit WindowStormTest() : PickTest({.hasCompositor = true}) {}
    ~WindowStormTest() override {
        EXPECT_GT(managed_.windowCount(), 100);
        EXPECT_GT(unmanaged_.windowCount(), 100);
    }

    /// Other windows take the keyboard away from it again and again.
    bool confirmAlert() {
        return waitUntil([this] { return alert() != XCB_WINDOW_NONE; }) && waitUntil([this] {
                   keyboard_.tap(keyboard_.keyOf(XK_Return));
                   return alert() == XCB_WINDOW_NONE;
               });
    }

    WindowStorm managed_{desktop_.display(), WindowStorm::Kind::managed};
    WindowStorm unmanaged_{desktop_.display(), WindowStorm::Kind::unmanaged};
};

TEST_F(WindowStormTest, AZoneIsPickedAnchoredAndFollowed) {
    const auto corvane = start({.clickMode = "zone", .clickRate = 50});
    openPicker();
    pointer_.drag({400, 350}, {550, 450});
    ASSERT_TRUE(corvane->waitForLog("Zone selected: (400.0, 350.0, 150.0, 100.0)"))
        << corvane->story();
    ASSERT_TRUE(confirmAlert()) << corvane->story();
    ASSERT_TRUE(corvane->waitForLog("Zone anchored to Target")) << corvane->story();
    ASSERT_TRUE(waitUntilIdle());

    pointer_.moveTo({475, 400});
    keyboard_.pressHotKey();
    ASSERT_TRUE(waitForMoreClicks(3)) << corvane->story();
    const Position window = client_.position(window_);
    client_.move(window_, {window.x + 200, window.y + 80});
    EXPECT_TRUE(waitUntil([this] { return isOutlined(screenshot(), {600, 430, 150, 100}); }));
    pointer_.moveTo({675, 480});
    EXPECT_TRUE(waitForMoreClicks(3)) << corvane->story();
    keyboard_.pressHotKey();
    EXPECT_TRUE(corvane->waitForLogBeginning("Clicker stopped after ")) << corvane->story();
}

TEST_F(WindowStormTest, RunsStartAndStop) {
    const auto corvane =
        start({.clickMode = "zone",
               .clickRate = 50,
               .zone = Area{320, 270, 300, 220},
               .anchor = Settings::Anchor{"Target", "Target", {20, 20, 300, 220}}});
    for (int run = 1; run <= 5; ++run) {
        keyboard_.pressHotKey();
        ASSERT_TRUE(corvane->waitForLogBeginning("Clicker started: ", run)) << corvane->story();
        EXPECT_TRUE(waitForMoreClicks(5)) << corvane->story();
        keyboard_.pressHotKey();
        ASSERT_TRUE(corvane->waitForLogBeginning("Clicker stopped after ", run))
            << corvane->story();
    }
    EXPECT_TRUE(corvane->process().isRunning());
}

} // namespace

} // namespace corvane::desktop
