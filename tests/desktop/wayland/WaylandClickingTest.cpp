#include "WaylandTest.h"

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdint>
#include <functional>
#include <vector>

namespace corvane::desktop {

namespace {

using Kind = PointerEvent::Kind;

class WaylandClickingTest : public EveryCompositorTest {
  protected:
    bool isButtonDown() const { return client_.pressCount() > client_.releaseCount(); }

    /// Halts something in a run so that the button stays down.
    bool haltInClick(const std::function<void()> &halt, const std::function<void()> &resume) {
        constexpr std::chrono::milliseconds longerThanAClick{50};
        return waitUntil([&] {
            if (!isButtonDown()) {
                return false;
            }
            halt();
            if (!waitUntil([&] { return !isButtonDown(); }, longerThanAClick)) {
                return true;
            }
            resume();
            return false;
        });
    }

    /// Whether the button comes up and nothing is clicked any more.
    bool isLeftAlone() {
        return waitUntil([this] { return !isButtonDown(); }) && staysQuiet();
    }
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
    std::vector<std::int64_t> held;
    const PointerEvent *press = nullptr;
    for (const PointerEvent &event : client_.events()) {
        if (event.kind == Kind::press) {
            press = &event;
        } else if (event.kind == Kind::release && press != nullptr) {
            held.push_back(event.milliseconds - press->milliseconds);
        }
    }
    ASSERT_EQ(held.size(), 15U);
    constexpr std::int64_t wanted = 10;
    std::ranges::nth_element(held, held.begin() + 7);
    // Times without their fractions differ by one less at most.
    EXPECT_GE(held[7], wanted - 1);
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
    ChildProcess &program = corvane->process();
    ASSERT_TRUE(haltInClick([&] { program.signal(SIGSTOP); }, [&] { program.signal(SIGCONT); }))
        << corvane->story();
    program.signal(SIGKILL);
    EXPECT_TRUE(isLeftAlone());
    EXPECT_TRUE(corvane->waitForLog("Released the mouse button after an unexpected end"));
}

TEST_P(WaylandClickingTest, AReleaseThatTheCompositorHasNotReadIsMadeUpFor) {
    const auto corvane = start({.clickRate = 100});
    desktop_.pressHotKey();
    ASSERT_TRUE(haltInClick([this] { desktop_.pauseCompositor(); },
                            [this] { desktop_.continueCompositor(); }))
        << corvane->story();
    corvane->process().signal(SIGKILL);
    ASSERT_TRUE(corvane->process().waitForEnd().has_value());
    desktop_.continueCompositor();
    EXPECT_TRUE(isLeftAlone());
    EXPECT_TRUE(corvane->waitForLog("Released the mouse button after an unexpected end"));
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
