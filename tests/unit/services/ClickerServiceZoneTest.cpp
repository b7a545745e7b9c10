#include "support/ClickerServiceTest.h"

namespace corvane::testing {
namespace {

using std::chrono::seconds;
using Lines = std::vector<std::string>;

class ClickerServiceZoneTest : public ClickerServiceTest {
  protected:
    /// How many clicks were made at a cursor there in zone mode.
    std::size_t clicksAt(Point cursor, const Rectangle &zone) {
        mouse_.setCursor(cursor);
        const std::size_t before = mouse_.posted().size();
        start({.clickMode = ClickMode::zone, .zoneRect = CodableRect::of(zone)});
        EXPECT_TRUE(awaitWait());
        stopAndAwait();
        return (mouse_.posted().size() - before) / 2;
    }
};

TEST_F(ClickerServiceZoneTest, OutsideTheZoneNothingIsClickedOrCounted) {
    mouse_.setCursor({500, 500});
    start({.clickMode = ClickMode::zone, .zoneRect = CodableRect{0, 0, 10, 10}, .maxClicks = 1});
    ASSERT_TRUE(awaitWait());
    for (int turn = 0; turn < 5; ++turn) {
        EXPECT_EQ(clock_.deadlines().at(0), clock_.now() + seconds(1));
        ASSERT_TRUE(clickAgain());
    }
    stopAndAwait();
    EXPECT_EQ(mouse_.readings().size(), 6U);
    EXPECT_TRUE(mouse_.posted().empty());
    EXPECT_TRUE(callbacks_.counts().empty());
    EXPECT_EQ(callbacks_.finishes(), 0);
    EXPECT_EQ(log_.lines(), (Lines{"Clicker started: mode=zone interval=1.0s maxClicks=1",
                                   "Clicker stopped after 0 clicks"}));
}

TEST_F(ClickerServiceZoneTest, OnlyClicksInsideTheZoneCount) {
    mouse_.scriptCursor({{5, 5}, {500, 500}, {6, 6}});
    start({.clickMode = ClickMode::zone, .zoneRect = CodableRect{0, 0, 10, 10}});
    ASSERT_TRUE(awaitWait());
    ASSERT_TRUE(clickAgain());
    ASSERT_TRUE(clickAgain());
    stopAndAwait();
    EXPECT_EQ(callbacks_.counts(), (std::vector<std::int64_t>{1, 2}));
    EXPECT_EQ(callbacks_.points(), (std::vector<Point>{{5, 5}, {6, 6}}));
}

TEST_F(ClickerServiceZoneTest, LeftAndTopEdgesAreInsideRightAndBottomEdgesOutside) {
    const Rectangle zone{10, 20, 30, 40};
    EXPECT_EQ(clicksAt({10, 20}, zone), 1U);
    EXPECT_EQ(clicksAt({10, 59.9}, zone), 1U);
    EXPECT_EQ(clicksAt({39.9, 20}, zone), 1U);
    EXPECT_EQ(clicksAt({40, 30}, zone), 0U);
    EXPECT_EQ(clicksAt({20, 60}, zone), 0U);
    EXPECT_EQ(clicksAt({9.9, 30}, zone), 0U);
    EXPECT_EQ(clicksAt({20, 19.9}, zone), 0U);
}

TEST_F(ClickerServiceZoneTest, AZoneWithoutAreaContainsNoPoint) {
    EXPECT_EQ(clicksAt({10, 20}, {10, 20, 0, 40}), 0U);
    EXPECT_EQ(clicksAt({10, 20}, {10, 20, 30, 0}), 0U);
    EXPECT_EQ(clicksAt({10, 20}, {10, 20, 0, 0}), 0U);
}

TEST_F(ClickerServiceZoneTest, ALiveZoneReplacesTheFixedOneAndIsFollowed) {
    const auto liveZone = std::make_shared<DynamicZoneRect>(Rectangle{100, 100, 10, 10});
    mouse_.setCursor({5, 5});
    start({.clickMode = ClickMode::zone, .zoneRect = CodableRect{0, 0, 10, 10}}, liveZone);
    ASSERT_TRUE(awaitWait());
    EXPECT_TRUE(mouse_.posted().empty());
    liveZone->setRect({0, 0, 10, 10});
    ASSERT_TRUE(clickAgain());
    EXPECT_EQ(callbacks_.counts().size(), 1U);
    liveZone->setRect({6, 0, 10, 10});
    ASSERT_TRUE(clickAgain());
    EXPECT_EQ(callbacks_.counts().size(), 1U);
}

TEST_F(ClickerServiceZoneTest, WithoutAnyZoneZoneModeClicksEverywhere) {
    mouse_.setCursor({-5000, 7000});
    start({.clickMode = ClickMode::zone});
    ASSERT_TRUE(awaitWait());
    EXPECT_EQ(callbacks_.counts().size(), 1U);
}

TEST_F(ClickerServiceZoneTest, CursorModeIgnoresTheZone) {
    mouse_.setCursor({500, 500});
    start({.zoneRect = CodableRect{0, 0, 10, 10}},
          std::make_shared<DynamicZoneRect>(Rectangle{0, 0, 10, 10}));
    ASSERT_TRUE(awaitWait());
    EXPECT_EQ(callbacks_.counts().size(), 1U);
}

} // namespace
} // namespace corvane::testing
