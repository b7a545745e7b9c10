#include "PickTest.h"

#include <X11/keysym.h>

#include <algorithm>

namespace corvane::desktop {

namespace {

/// Three monitors side by side, each of another size; the primary one is in the middle and lower
/// than the others begin.
class MonitorTest : public PickTest {
  protected:
    static constexpr Area left{0, 300, 500, 400};
    static constexpr Area middle{500, 100, 600, 700};
    static constexpr Area right{1100, 0, 500, 900};

    MonitorTest() : PickTest({.width = 1600, .height = 900}) {
        addMonitor("left", left, "screen");
        addMonitor("*middle", middle);
        addMonitor("right", right);
        monitors_ = {left, middle, right};
        client_.close(window_);
        // A light ground on all of them.
        window_ = client_.open({.x = 0, .y = 0, .width = 1600, .height = 900, .isOverride = true});
        EXPECT_TRUE(waitUntil([this] { return isWhite(screenshot().at({1500, 800})); }));
        corvane_ = start({.clickMode = "zone", .clickRate = 20});
    }

    void addMonitor(const std::string &name, const Area &area, const std::string &output = "none") {
        const std::string geometry = std::to_string(area.width) + "/100x" +
                                     std::to_string(area.height) + "/100+" +
                                     std::to_string(area.x) + "+" + std::to_string(area.y);
        desktop_.run({"xrandr", "--setmonitor", name, geometry, output});
    }

    void removeMonitor(const std::string &name, const Area &area) {
        desktop_.run({"xrandr", "--delmonitor", name});
        std::erase(monitors_, area);
    }

    void drag(const Area &zone) const {
        pointer_.moveTo({zone.x, zone.y});
        pointer_.press();
        pointer_.moveTo({zone.x + zone.width, zone.y + zone.height});
    }

    /// Whether the dashes run along the four sides of the zone, on whatever monitor.
    bool showsDrag(const Area &zone) const {
        const Screenshot seen = screenshot();
        const auto hasDashes = [&seen](Position position) {
            return seen.count(position, 6, isBlue) > 5;
        };
        const Position end{zone.x + zone.width, zone.y + zone.height};
        return hasDashes({zone.x + 20, zone.y}) && hasDashes({end.x - 20, zone.y}) &&
               hasDashes({zone.x + 20, end.y}) && hasDashes({end.x - 20, end.y}) &&
               hasDashes({zone.x, zone.y + 20}) && hasDashes({end.x, end.y - 20}) &&
               seen.count({zone.x + 20, zone.y - 12}, 6, isBlue) == 0 &&
               seen.count({end.x - 20, end.y + 12}, 6, isBlue) == 0;
    }

    /// Picks the zone and looks at the drag before the button is let go.
    void pick(const Area &zone) {
        openPicker();
        finishPick(zone);
    }

    void finishPick(const Area &zone) {
        drag(zone);
        EXPECT_TRUE(waitUntil([&] { return showsDrag(zone); }));
        pointer_.release();
        const auto number = [](int value) { return std::to_string(value) + ".0"; };
        EXPECT_TRUE(corvane_->waitForLog("Zone selected: (" + number(zone.x) + ", " +
                                         number(zone.y) + ", " + number(zone.width) + ", " +
                                         number(zone.height) + ")"))
            << corvane_->story();
        ASSERT_TRUE(waitUntilIdle());
    }

    bool hasRingAt(Position click) const {
        return waitUntil([&] {
            const auto ring = ringAround(screenshot(), click);
            return ring && ring->width > 20 && ring->x + ring->width / 2 == click.x &&
                   ring->y + ring->height / 2 == click.y;
        });
    }

    /// Looks at a run in the zone that is under way.
    void expectRunIn(const Area &zone) {
        EXPECT_TRUE(waitUntil([&] { return isOutlined(screenshot(), zone); }));
        EXPECT_TRUE(hasBadge(screenshot(), zone));
        const Position inside{zone.x + zone.width - 30, zone.y + zone.height - 30};
        for (const Position click : {Position{zone.x + 30, zone.y + 30}, inside}) {
            pointer_.moveTo(click);
            EXPECT_TRUE(waitForMoreClicks(2)) << corvane_->story();
            EXPECT_EQ(client_.events().back().position, click);
            EXPECT_TRUE(hasRingAt(click));
        }
        pointer_.moveTo({zone.x + zone.width, zone.y + 30});
        EXPECT_TRUE(staysQuiet());
        pointer_.moveTo(inside);
    }

    std::unique_ptr<CorvaneProcess> corvane_;
};

TEST_F(MonitorTest, EveryMonitorIsCoveredAndNothingElse) {
    openPicker();
    EXPECT_TRUE(waitUntil([this] {
        const Screenshot seen = screenshot();
        return std::ranges::all_of(monitors_, [&seen](const Area &monitor) {
            const Position last{monitor.x + monitor.width - 1, monitor.y + monitor.height - 1};
            return !isWhite(seen.at({monitor.x, monitor.y})) && !isWhite(seen.at(last));
        });
    }));
    EXPECT_TRUE(isWhite(screenshot().at({left.x, left.y - 1})));
    EXPECT_TRUE(isWhite(screenshot().at({middle.x, middle.y + middle.height})));
    keyboard_.tap(keyboard_.keyOf(XK_Escape));
    EXPECT_TRUE(waitUntilIdle());
}

TEST_F(MonitorTest, AZoneOnAnyMonitorIsWhereItWasDrawn) {
    for (const Area &zone : {Area{60, 350, 200, 150}, Area{700, 200, 180, 120},
                             Area{1200, 60, 160, 140}, Area{430, 400, 240, 160}}) {
        pick(zone);
        keyboard_.pressHotKey();
        expectRunIn(zone);
        keyboard_.pressHotKey();
        ASSERT_TRUE(waitUntilIdle());
    }
}

TEST_F(MonitorTest, ARunGoesOnWhenMonitorsGo) {
    constexpr Area zone{700, 200, 180, 120};
    pick(zone);
    keyboard_.pressHotKey();
    expectRunIn(zone);
    removeMonitor("right", right);
    expectRunIn(zone);
    removeMonitor("middle", middle);
    expectRunIn(zone);
}

TEST_F(MonitorTest, APickGoesOnWhenAMonitorGoes) {
    openPicker();
    removeMonitor("right", right);
    finishPick({430, 400, 240, 160});
}

TEST_F(MonitorTest, APickGoesOnWhenThePrimaryMonitorGoes) {
    openPicker();
    removeMonitor("middle", middle);
    finishPick({1200, 60, 160, 140});
    pick({60, 350, 200, 150});
}

TEST_F(MonitorTest, APickThatLosesItsMonitorIsCancelledOnAnother) {
    openPicker();
    removeMonitor("left", left);
    removeMonitor("middle", middle);
    keyboard_.tap(keyboard_.keyOf(XK_Escape));
    EXPECT_TRUE(corvane_->waitForLog("Zone picker cancelled")) << corvane_->story();
    EXPECT_TRUE(waitUntilIdle());
}

} // namespace

} // namespace corvane::desktop
