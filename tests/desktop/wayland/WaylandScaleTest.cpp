#include "WaylandTest.h"
#include "harness/servers/KWinDesktop.h"
#include "harness/servers/SwayDesktop.h"

#include <ostream>
#include <string>

namespace corvane::desktop {

namespace {

/// A desktop whose first monitor is 1280 by 800 units large at a scale.
struct ScaledDesktop {
    const char *name;
    std::unique_ptr<WaylandDesktop> (*make)();

    friend std::ostream &operator<<(std::ostream &stream, const ScaledDesktop &desktop) {
        return stream << desktop.name;
    }
};

std::unique_ptr<WaylandDesktop> scaledSway(const std::string &scale,
                                           const std::string &resolution) {
    return std::make_unique<SwayDesktop>("output HEADLESS-1 resolution " + resolution + " scale " +
                                         scale + "\noutput HEADLESS-2 scale " + scale);
}

std::unique_ptr<WaylandDesktop> scaledKWin(double scale) {
    return std::make_unique<KWinDesktop>(KWinDesktop::Permission::given, scale);
}

class WaylandScaleTest : public WaylandTest, public testing::WithParamInterface<ScaledDesktop> {
  protected:
    WaylandScaleTest() : WaylandTest(GetParam().make()) {}
};

TEST_P(WaylandScaleTest, ClicksArriveAtTheEdgesOfTheZone) {
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

TEST_P(WaylandScaleTest, AZoneIsDrawnInUnitsOfTheLayout) {
    const auto corvane = start({});
    openPicker();
    drag({1200, 101}, {1500, 281});
    EXPECT_TRUE(corvane->waitForLog("Zone selected: (1200.0, 101.0, 300.0, 180.0)"))
        << corvane->story();
}

INSTANTIATE_TEST_SUITE_P(
    , WaylandScaleTest,
    testing::Values(ScaledDesktop{"swayOneAndAHalf", [] { return scaledSway("1.5", "1920x1200"); }},
                    ScaledDesktop{"swayTwice", [] { return scaledSway("2", "2560x1600"); }},
                    ScaledDesktop{"kwinOneAndAHalf", [] { return scaledKWin(1.5); }},
                    ScaledDesktop{"kwinTwice", [] { return scaledKWin(2); }}),
    [](const auto &test) { return test.param.name; });

} // namespace

} // namespace corvane::desktop
