#include "WaylandTest.h"
#include "harness/servers/KWinDesktop.h"
#include "harness/servers/SwayDesktop.h"

#include <chrono>
#include <csignal>
#include <functional>

namespace corvane::desktop {

namespace {

class WaylandFaultsTest : public EveryCompositorTest {
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

    /// KWin itself releases the button of a mouse that it has handed out.
    static bool isReleaseLogged(CorvaneProcess &corvane) {
        return GetParam() == "kwin_eis" ||
               corvane.waitForLog("Released the mouse button after an unexpected end");
    }
};

TEST_P(WaylandFaultsTest, AProgramKilledInAClickLeavesTheButtonUp) {
    const auto corvane = start({.clickRate = 100});
    desktop_.pressHotKey();
    ChildProcess &program = corvane->process();
    ASSERT_TRUE(haltInClick([&] { program.signal(SIGSTOP); }, [&] { program.signal(SIGCONT); }))
        << corvane->story();
    program.signal(SIGKILL);
    EXPECT_TRUE(isLeftAlone());
    EXPECT_TRUE(isReleaseLogged(*corvane));
}

TEST_P(WaylandFaultsTest, AReleaseThatTheCompositorHasNotReadIsMadeUpFor) {
    const auto corvane = start({.clickRate = 100});
    desktop_.pressHotKey();
    ASSERT_TRUE(haltInClick([this] { desktop_.pauseCompositor(); },
                            [this] { desktop_.continueCompositor(); }))
        << corvane->story();
    corvane->process().signal(SIGKILL);
    ASSERT_TRUE(corvane->process().waitForEnd().has_value());
    desktop_.continueCompositor();
    EXPECT_TRUE(isLeftAlone());
    EXPECT_TRUE(isReleaseLogged(*corvane));
}

TEST_P(WaylandFaultsTest, ACompositorThatGoesEndsTheProgram) {
    const auto corvane = start({.clickRate = 100});
    desktop_.pressHotKey();
    ASSERT_TRUE(waitForMoreClicks(3)) << corvane->story();
    desktop_.stopCompositor();
    EXPECT_EQ(corvane->process().waitForEnd(), (ProcessEnd{.exitCode = 1})) << corvane->story();
    EXPECT_TRUE(corvane->waitForLogBeginning("Clicker stopped after ")) << corvane->story();
}

/// The program's own windows are X clients.
TEST_P(WaylandFaultsTest, AnXWaylandThatGoesEndsTheProgram) {
    const auto corvane = start({.clickRate = 100});
    desktop_.pressHotKey();
    ASSERT_TRUE(waitForMoreClicks(3)) << corvane->story();
    desktop_.stopXWayland();
    EXPECT_EQ(corvane->process().waitForEnd(), (ProcessEnd{.exitCode = 1})) << corvane->story();
    EXPECT_TRUE(corvane->waitForLogBeginning("Clicker stopped after ")) << corvane->story();
    EXPECT_TRUE(isLeftAlone());
}

CORVANE_EVERY_COMPOSITOR(WaylandFaultsTest);

class RestartedSwayTest : public WaylandTest {
  protected:
    RestartedSwayTest() : WaylandTest(std::make_unique<SwayDesktop>()) {}

    SwayDesktop &sway_ = static_cast<SwayDesktop &>(desktop_);
};

TEST_F(RestartedSwayTest, TheNextStartClicks) {
    const auto corvane = start({.clickRate = 100});
    desktop_.pressHotKey();
    ASSERT_TRUE(waitForMoreClicks(3)) << corvane->story();
    sway_.stopCompositor();
    ASSERT_TRUE(corvane->process().waitForEnd().has_value()) << corvane->story();
    sway_.restart();
    WaylandClient client(desktop_);
    client.open({.position = corner});
    client.moveTo(target);
    const auto next = start({.clickRate = 100});
    desktop_.pressHotKey();
    EXPECT_TRUE(client.waitForClicks(3)) << next->story();
}

class LostBusOnKWinTest : public WaylandTest {
  protected:
    LostBusOnKWinTest() : WaylandTest(std::make_unique<KWinDesktop>()) {}
};

/// KWin reports over the bus where the pointer is, and which keys are pressed.
TEST_F(LostBusOnKWinTest, NothingIsClickedBlindlyAndACommandStopsTheRun) {
    const auto corvane = start({.clickRate = 100});
    desktop_.pressHotKey();
    ASSERT_TRUE(waitForMoreClicks(3)) << corvane->story();
    desktop_.stopMessageBus();
    EXPECT_TRUE(waitUntil([this] { return staysQuiet(); })) << corvane->story();
    EXPECT_EQ(client_.pressCount(), client_.releaseCount());
    CorvaneProcess command(desktop_, {.arguments = {"stop"}});
    EXPECT_EQ(command.process().waitForEnd(), (ProcessEnd{.exitCode = 0})) << command.story();
    EXPECT_TRUE(corvane->waitForLogBeginning("Clicker stopped after ")) << corvane->story();
}

} // namespace

} // namespace corvane::desktop
