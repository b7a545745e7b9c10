#include "WaylandTest.h"
#include "harness/servers/SwayDesktop.h"

namespace corvane::desktop {

namespace {

class SwayTest : public WaylandTest {
  protected:
    SwayTest() : WaylandTest(std::make_unique<SwayDesktop>()) {}

    SwayDesktop &sway_ = static_cast<SwayDesktop &>(desktop_);
};

TEST_F(SwayTest, AButtonTheUserHoldsIsLeftAlone) {
    const auto corvane = start({.clickRate = 100});
    client_.press();
    desktop_.pressHotKey();
    ASSERT_TRUE(corvane->waitForLogBeginning("Clicker started")) << corvane->story();
    EXPECT_TRUE(staysQuiet());
    EXPECT_EQ(client_.releaseCount(), 0);
    client_.release();
    EXPECT_TRUE(waitForMoreClicks(3)) << corvane->story();
}

TEST_F(SwayTest, AMonitorThatGoesTakesItsPickerAlong) {
    const auto corvane = start({});
    openPicker();
    sway_.command("output HEADLESS-2 disable");
    drag({900, 100}, {1100, 200});
    EXPECT_TRUE(corvane->waitForLog("Zone selected: (900.0, 100.0, 200.0, 100.0)"))
        << corvane->story();
}

TEST_F(SwayTest, AMonitorThatGoesInARunLeavesTheRunAlone) {
    const auto corvane =
        start({.clickMode = "zone", .clickRate = 50, .zone = Area{400, 320, 1000, 80}});
    client_.moveTo({450, 360});
    desktop_.pressHotKey();
    ASSERT_TRUE(waitForMoreClicks(3)) << corvane->story();
    sway_.command("output HEADLESS-2 disable");
    EXPECT_TRUE(clicksAt({460, 360})) << corvane->story();
    sway_.command("output HEADLESS-2 enable");
    EXPECT_TRUE(clicksAt({450, 360})) << corvane->story();
}

} // namespace

} // namespace corvane::desktop
