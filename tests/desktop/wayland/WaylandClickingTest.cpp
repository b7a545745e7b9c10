#include "WaylandTest.h"

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <optional>
#include <thread>
#include <utility>
#include <vector>

namespace corvane::desktop {

namespace {

using Kind = PointerEvent::Kind;

class WaylandClickingTest : public EveryCompositorTest {
  protected:
    /// Milliseconds of the compositor's clock from each event of the first kind to the next one of
    /// the second kind.
    std::vector<std::int64_t> between(Kind first, Kind second) const {
        std::vector<std::int64_t> times;
        std::optional<std::int64_t> since;
        for (const PointerEvent &event : client_.events()) {
            if (event.kind == second && since) {
                times.push_back(event.milliseconds - *std::exchange(since, std::nullopt));
            }
            if (event.kind == first) {
                since = event.milliseconds;
            }
        }
        return times;
    }

    /// How long the button was held in each click.
    std::vector<std::int64_t> holds() const { return between(Kind::press, Kind::release); }

    /// Milliseconds without their fractions differ by one less at most.
    static constexpr std::int64_t shortestHold = 10 - 1;
};

TEST_P(WaylandClickingTest, EveryClickArrivesWhereThePointerIs) {
    const auto corvane = start({.clickRate = 10, .maxClicks = 20});
    const int motions = client_.count(Kind::motion);
    desktop_.pressHotKey();
    EXPECT_TRUE(corvane->waitForLog("Clicker finished after 20 clicks (limit reached)"))
        << corvane->story();
    EXPECT_TRUE(client_.waitForClicks(20));
    EXPECT_TRUE(staysQuiet());
    EXPECT_EQ(client_.pressCount(), 20);
    EXPECT_EQ(client_.releaseCount(), 20);
    EXPECT_EQ(client_.count(Kind::motion), motions);
    for (const PointerEvent &event : client_.events()) {
        if (event.kind == Kind::press || event.kind == Kind::release) {
            EXPECT_EQ(event.position, (Position{target.x - corner.x, target.y - corner.y}));
        }
    }
}

TEST_P(WaylandClickingTest, TheLimitIsKeptExactlyAndTheButtonIsHeld) {
    const auto corvane = start({.clickRate = 20, .maxClicks = 15});
    desktop_.pressHotKey();
    ASSERT_TRUE(client_.waitForClicks(15)) << corvane->story();
    EXPECT_TRUE(staysQuiet());
    EXPECT_EQ(client_.pressCount(), 15);
    const auto held = holds();
    ASSERT_EQ(held.size(), 15U);
    EXPECT_GE(std::ranges::min(held), shortestHold);
    EXPECT_LT(std::ranges::min(held), 2 * shortestHold);
}

TEST_P(WaylandClickingTest, ACompositorThatStoodStillGetsNoClicksInABurst) {
    const auto corvane = start({.clickRate = 50});
    desktop_.pressHotKey();
    ASSERT_TRUE(waitForMoreClicks(3)) << corvane->story();
    desktop_.pauseCompositor();
    constexpr std::chrono::milliseconds aWhile{300};
    std::this_thread::sleep_for(aWhile);
    desktop_.continueCompositor();
    ASSERT_TRUE(waitForMoreClicks(5)) << corvane->story();
    EXPECT_GE(std::ranges::min(holds()), shortestHold);
    EXPECT_GE(std::ranges::max(between(Kind::press, Kind::press)), aWhile.count() / 2);
}

TEST_P(WaylandClickingTest, TheHotKeyStartsAndStops) {
    const auto corvane = start({.clickRate = 100});
    desktop_.pressHotKey();
    ASSERT_TRUE(waitForMoreClicks(5)) << corvane->story();
    desktop_.pressHotKey();
    EXPECT_TRUE(corvane->waitForLogBeginning("Clicker stopped after ")) << corvane->story();
    EXPECT_TRUE(staysQuiet());
    EXPECT_EQ(client_.pressCount(), client_.releaseCount());
}

TEST_P(WaylandClickingTest, AHeldHotKeyIsOnePress) {
    const auto corvane = start({.clickRate = 100});
    desktop_.pressHotKey(std::chrono::milliseconds(1500));
    ASSERT_TRUE(waitForMoreClicks(5)) << corvane->story();
    EXPECT_EQ(corvane->logCount("Clicker started: mode=cursor interval=0.01s maxClicks=0"), 1);
    desktop_.pressHotKey();
    EXPECT_TRUE(corvane->waitForLogBeginning("Clicker stopped after ")) << corvane->story();
}

CORVANE_EVERY_COMPOSITOR(WaylandClickingTest);

} // namespace

} // namespace corvane::desktop
