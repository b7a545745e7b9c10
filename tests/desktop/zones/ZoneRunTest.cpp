#include "DesktopTest.h"

namespace corvane::desktop {

namespace {

/// Runs in a zone at (400, 320) to (500, 400), inside the window.
class ZoneRunTest : public DesktopTest {
  protected:
    ZoneRunTest() {
        pointer_.moveTo({450, 360});
        keyboard_.pressHotKey();
    }

    bool clicksAt(Position position) {
        pointer_.moveTo(position);
        return waitForMoreClicks(2);
    }

    /// A click for which the pointer was read before it moved may still be under way.
    bool isQuietAt(Position position) {
        pointer_.moveTo(position);
        return waitUntil([this] { return staysQuiet(); });
    }

    std::unique_ptr<CorvaneProcess> corvane_ =
        start({.clickMode = "zone", .clickRate = 50, .zone = Area{400, 320, 100, 80}});
};

TEST_F(ZoneRunTest, ClicksInsideOnly) {
    ASSERT_TRUE(clicksAt({450, 360})) << corvane_->story();
    EXPECT_TRUE(isQuietAt({600, 500}));
    EXPECT_TRUE(clicksAt({420, 330}));
}

TEST_F(ZoneRunTest, MinimumEdgesAreInsideAndMaximumEdgesOutside) {
    EXPECT_TRUE(clicksAt({400, 320})) << corvane_->story();
    EXPECT_TRUE(clicksAt({499, 399}));
    EXPECT_TRUE(isQuietAt({500, 360}));
    EXPECT_TRUE(isQuietAt({450, 400}));
    EXPECT_TRUE(isQuietAt({399, 360}));
    EXPECT_TRUE(isQuietAt({450, 319}));
}

class EmptyZoneTest : public DesktopTest {};

TEST_F(EmptyZoneTest, IsNeverClicked) {
    const auto corvane =
        start({.clickMode = "zone", .clickRate = 50, .zone = Area{target.x, target.y, 0, 50}});
    keyboard_.pressHotKey();
    ASSERT_TRUE(corvane->waitForLogBeginning("Clicker started")) << corvane->story();
    EXPECT_TRUE(staysQuiet());
    keyboard_.pressHotKey();
    EXPECT_TRUE(corvane->waitForLog("Clicker stopped after 0 clicks")) << corvane->story();
}

TEST_F(EmptyZoneTest, ZoneModeWithoutAZoneClicksEverywhere) {
    const auto corvane = start({.clickMode = "zone", .clickRate = 50});
    keyboard_.pressHotKey();
    EXPECT_TRUE(waitForMoreClicks(2)) << corvane->story();
}

} // namespace

} // namespace corvane::desktop
