#include "WaylandTest.h"

#include <algorithm>
#include <csignal>
#include <cstdint>
#include <vector>

namespace corvane::desktop {

namespace {

using Kind = PointerEvent::Kind;

class WaylandClickingTest : public EveryCompositorTest {};

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
    std::vector<std::int64_t> held;
    const PointerEvent *press = nullptr;
    for (const PointerEvent &event : client_.events()) {
        if (event.kind == Kind::press) {
            press = &event;
        } else if (event.kind == Kind::release && press != nullptr) {
            held.push_back(event.nanoseconds - press->nanoseconds);
        }
    }
    ASSERT_EQ(held.size(), 15U);
    constexpr std::int64_t wanted = 10'000'000;
    constexpr std::int64_t early = 500'000;
    std::ranges::nth_element(held, held.begin() + 7);
    EXPECT_GE(held[7], wanted - early);
    EXPECT_LT(held[7], 2 * wanted);
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

TEST_P(WaylandClickingTest, AProgramKilledInAClickLeavesTheButtonUp) {
    const auto corvane = start({.clickRate = 100});
    desktop_.pressHotKey();
    ASSERT_TRUE(waitUntil([&] {
        if (client_.pressCount() == client_.releaseCount()) {
            return false;
        }
        corvane->process().signal(SIGSTOP);
        constexpr std::chrono::milliseconds longerThanAClick{50};
        if (!waitUntil([&] { return client_.pressCount() == client_.releaseCount(); },
                       longerThanAClick)) {
            return true;
        }
        corvane->process().signal(SIGCONT);
        return false;
    })) << corvane->story();
    corvane->process().signal(SIGKILL);
    EXPECT_TRUE(waitUntil([&] { return client_.pressCount() == client_.releaseCount(); }));
    EXPECT_TRUE(corvane->waitForLog("Released the mouse button after an unexpected end"));
    EXPECT_TRUE(staysQuiet());
}

TEST_P(WaylandClickingTest, ACompositorThatGoesEndsTheProgram) {
    const auto corvane = start({.clickRate = 100});
    desktop_.pressHotKey();
    ASSERT_TRUE(waitForMoreClicks(3)) << corvane->story();
    desktop_.stopCompositor();
    const auto end = corvane->process().waitForEnd();
    ASSERT_TRUE(end.has_value()) << corvane->story();
    EXPECT_EQ(end, (ProcessEnd{.exitCode = 1})) << corvane->story();
}

CORVANE_EVERY_COMPOSITOR(WaylandClickingTest);

} // namespace

} // namespace corvane::desktop
