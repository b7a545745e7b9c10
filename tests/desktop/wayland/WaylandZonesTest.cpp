#include "WaylandTest.h"
#include "harness/TextFile.h"

#include <string>

namespace corvane::desktop {

namespace {

class WaylandZonesTest : public EveryCompositorTest {};

class WaylandPickTest : public EveryCompositorTest {};

class WaylandAnchorTest : public EveryCompositorTest {};

TEST_P(WaylandZonesTest, ClicksInsideOnlyAndThroughTheOutline) {
    const auto corvane =
        start({.clickMode = "zone", .clickRate = 50, .zone = Area{400, 320, 100, 80}});
    client_.moveTo({450, 360});
    desktop_.pressHotKey();
    EXPECT_TRUE(clicksAt({400, 320})) << corvane->story();
    EXPECT_TRUE(clicksAt({499, 399}));
    EXPECT_TRUE(isQuietAt({500, 360}));
    EXPECT_TRUE(isQuietAt({450, 400}));
    EXPECT_TRUE(isQuietAt({399, 360}));
    EXPECT_TRUE(isQuietAt({450, 319}));
    EXPECT_TRUE(clicksAt({401, 360}));
}

TEST_P(WaylandZonesTest, TheOutlineIsSeenWhileARunLasts) {
    const auto corvane =
        start({.clickMode = "zone", .clickRate = 1, .zone = Area{400, 320, 100, 80}});
    constexpr Position outside{0, 0};
    constexpr Position edge{400, 360};
    client_.moveTo(outside);
    const std::string window = desktop_.sightAt(edge);
    desktop_.pressHotKey();
    EXPECT_TRUE(waitUntil([&] { return desktop_.sightAt(edge) != window; })) << corvane->story();
    desktop_.pressHotKey();
    EXPECT_TRUE(waitUntil([&] { return desktop_.sightAt(edge) == window; })) << corvane->story();
}

TEST_P(WaylandPickTest, AZoneIsDrawnAcrossTwoMonitors) {
    const auto corvane = start({});
    openPicker();
    drag({1200, 100}, {1500, 340});
    EXPECT_TRUE(corvane->waitForLog("Zone selected: (1200.0, 100.0, 300.0, 240.0)"))
        << corvane->story();
    EXPECT_TRUE(waitUntil([this] {
        return readFile(settingsFile(desktop_)).find("\"width\" : 300") != std::string::npos;
    }));
    EXPECT_EQ(client_.pressCount(), 0);
}

TEST_P(WaylandPickTest, EscapeCancelsAPick) {
    const auto corvane = start({});
    openPicker();
    desktop_.tapEscape();
    EXPECT_TRUE(corvane->waitForLog("Zone picker cancelled")) << corvane->story();
    client_.moveTo(target);
    client_.press();
    client_.release();
    EXPECT_TRUE(client_.waitForClicks(1));
}

TEST_P(WaylandAnchorTest, AnAnchoredZoneFollowsTheWindow) {
    constexpr Area relative{100, 80, 120, 90};
    constexpr Position inZone{150, 120};
    const auto corvane =
        start({.clickMode = "zone",
               .clickRate = 50,
               .zone = Area{20, 20, 50, 50},
               .anchor = Settings::Anchor{
                   .application = "Target", .title = "Target", .relative = relative}});
    const auto at = [&](Position window) {
        return Position{window.x + inZone.x, window.y + inZone.y};
    };
    client_.moveTo(at(corner));
    desktop_.pressHotKey();
    EXPECT_TRUE(corvane->waitForLog("Resolved window anchor: zone at (400.0, 330.0, 120.0, 90.0)"))
        << corvane->story();
    ASSERT_TRUE(waitForMoreClicks(2)) << corvane->story();
    Position before = corner;
    for (const Position window : {Position{600, 310}, Position{420, 60}, Position{1400, 200}}) {
        desktop_.place("Target", window);
        EXPECT_TRUE(clicksAt(at(window)));
        EXPECT_TRUE(isQuietAt(at(before)));
        before = window;
    }
}

CORVANE_EVERY_COMPOSITOR(WaylandZonesTest);
CORVANE_COMPOSITORS(WaylandPickTest, pickingCompositors);
CORVANE_COMPOSITORS(WaylandAnchorTest, windowReportingCompositors);

} // namespace

} // namespace corvane::desktop
