#include "WaylandTest.h"
#include "harness/TextFile.h"

#include <string>

namespace corvane::desktop {

namespace {

class WaylandZonesTest : public WaylandTest {
  protected:
    bool clicksAt(Position position) {
        client_.moveTo(position);
        return waitForMoreClicks(2);
    }

    /// A click for which the pointer was read before it moved may still be under way.
    bool isQuietAt(Position position) {
        client_.moveTo(position);
        return waitUntil([this] { return staysQuiet(); });
    }

    /// Has the running program show the picker, and waits until it dims a window on each monitor:
    /// where there is none, a compositor may show black, which cannot get darker.
    void openPicker() {
        constexpr Position onSecond{1400, 200};
        constexpr Position onFirst = target;
        client_.open({.title = "Other", .application = "Other", .position = onSecond});
        const Pixel first = desktop_.colourAt(onFirst);
        const Pixel second = desktop_.colourAt(onSecond);
        CorvaneProcess command(desktop_, {.arguments = {"select-zone"}});
        ASSERT_EQ(command.process().waitForEnd(), (ProcessEnd{.exitCode = 0})) << command.story();
        ASSERT_TRUE(waitUntil([&] {
            return desktop_.colourAt(onFirst) != first && desktop_.colourAt(onSecond) != second;
        }));
    }

    void drag(Position from, Position to) {
        client_.moveTo(from);
        client_.press();
        client_.moveTo({(from.x + to.x) / 2, (from.y + to.y) / 2});
        client_.moveTo(to);
        client_.release();
    }
};

TEST_F(WaylandZonesTest, ClicksInsideOnlyAndThroughTheOutline) {
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

TEST_F(WaylandZonesTest, TheOutlineIsSeenWhileARunLasts) {
    const auto corvane =
        start({.clickMode = "zone", .clickRate = 1, .zone = Area{400, 320, 100, 80}});
    constexpr Position outside{0, 0};
    constexpr Position edge{400, 360};
    client_.moveTo(outside);
    const Pixel window = desktop_.colourAt(edge);
    desktop_.pressHotKey();
    EXPECT_TRUE(waitUntil([&] { return desktop_.colourAt(edge) != window; })) << corvane->story();
    desktop_.pressHotKey();
    EXPECT_TRUE(waitUntil([&] { return desktop_.colourAt(edge) == window; })) << corvane->story();
}

TEST_F(WaylandZonesTest, AnAnchoredZoneFollowsTheWindow) {
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

TEST_F(WaylandZonesTest, AZoneIsDrawnAcrossTwoMonitors) {
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

TEST_F(WaylandZonesTest, EscapeCancelsAPick) {
    const auto corvane = start({});
    openPicker();
    desktop_.tap("Escape");
    EXPECT_TRUE(corvane->waitForLog("Zone picker cancelled")) << corvane->story();
    client_.moveTo(target);
    client_.press();
    client_.release();
    EXPECT_TRUE(client_.waitForClicks(1));
}

TEST_F(WaylandZonesTest, AMonitorThatGoesTakesItsPickerAlong) {
    const auto corvane = start({});
    openPicker();
    desktop_.command("output HEADLESS-2 disable");
    drag({900, 100}, {1100, 200});
    EXPECT_TRUE(corvane->waitForLog("Zone selected: (900.0, 100.0, 200.0, 100.0)"))
        << corvane->story();
}

TEST_F(WaylandZonesTest, AMonitorThatGoesInARunLeavesTheRunAlone) {
    const auto corvane =
        start({.clickMode = "zone", .clickRate = 50, .zone = Area{400, 320, 1000, 80}});
    client_.moveTo({450, 360});
    desktop_.pressHotKey();
    ASSERT_TRUE(waitForMoreClicks(3)) << corvane->story();
    desktop_.command("output HEADLESS-2 disable");
    EXPECT_TRUE(clicksAt({460, 360})) << corvane->story();
    desktop_.command("output HEADLESS-2 enable");
    EXPECT_TRUE(clicksAt({450, 360})) << corvane->story();
}

} // namespace

} // namespace corvane::desktop
