#include "WaylandTest.h"
#include "harness/servers/SwayDesktop.h"

#include <string>

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

/// What the first monitor needs to be 1280 by 800 units large at that scale.
struct Scale {
    std::string name;
    std::string scale;
    std::string resolution;
};

class ScaledSwayTest : public WaylandTest, public testing::WithParamInterface<Scale> {
  protected:
    ScaledSwayTest()
        : WaylandTest(std::make_unique<SwayDesktop>(
              "output HEADLESS-1 resolution " + GetParam().resolution + " scale " +
              GetParam().scale + "\noutput HEADLESS-2 scale " + GetParam().scale)) {}
};

TEST_P(ScaledSwayTest, ClicksArriveAtTheEdgesOfTheZone) {
    const auto corvane =
        start({.clickMode = "zone", .clickRate = 50, .zone = Area{401, 323, 99, 77}});
    client_.moveTo({450, 360});
    desktop_.pressHotKey();
    EXPECT_TRUE(clicksAt({401, 323})) << corvane->story();
    EXPECT_EQ(client_.events().back().position, (Position{401 - corner.x, 323 - corner.y}));
    EXPECT_TRUE(clicksAt({499, 399}));
    EXPECT_TRUE(isQuietAt({500, 360}));
    EXPECT_TRUE(isQuietAt({450, 400}));
    EXPECT_TRUE(isQuietAt({400, 360}));
    EXPECT_TRUE(isQuietAt({450, 322}));
}

TEST_P(ScaledSwayTest, AZoneIsDrawnInUnitsOfTheLayout) {
    const auto corvane = start({});
    openPicker();
    drag({1200, 101}, {1500, 281});
    EXPECT_TRUE(corvane->waitForLog("Zone selected: (1200.0, 101.0, 300.0, 180.0)"))
        << corvane->story();
}

INSTANTIATE_TEST_SUITE_P(, ScaledSwayTest,
                         testing::Values(Scale{"oneAndAHalf", "1.5", "1920x1200"},
                                         Scale{"twice", "2", "2560x1600"}),
                         [](const auto &test) { return test.param.name; });

} // namespace

} // namespace corvane::desktop
