#include "DesktopTest.h"
#include "harness/TextFile.h"
#include "harness/actors/StatusPanel.h"
#include "harness/probes/ProcessTable.h"

#include <csignal>
#include <stdexcept>

#include <unistd.h>

namespace corvane::desktop {

namespace {

/// What the program needs of the desktop goes away and comes back while it clicks.
class DesktopFaultsTest : public DesktopTest {
  protected:
    DesktopFaultsTest() : DesktopTest({.hasCompositor = true}) { keepWindowManagerOut(); }

    /// Kills the program of the desktop and starts it again as it was.
    std::unique_ptr<ChildProcess> killAndRestart(const std::string &name) {
        const pid_t victim = desktopProgram(name);
        std::vector<std::string> command =
            split(readFile("/proc/" + std::to_string(victim) + "/cmdline"), '\0');
        command.pop_back();
        kill(victim, SIGKILL);
        EXPECT_TRUE(waitUntil([&] { return !isAlive(victim); }));
        return desktop_.start(command);
    }

    static pid_t desktopProgram(const std::string &name) {
        for (const pid_t child : childrenOf(getpid())) {
            if (readFile("/proc/" + std::to_string(child) + "/comm") == name + "\n") {
                return child;
            }
        }
        throw std::runtime_error("No " + name + " runs on the desktop");
    }

    /// With an outline and ripples on the screen.
    std::unique_ptr<CorvaneProcess> startZoneRun() {
        auto corvane =
            start({.clickMode = "zone", .clickRate = 50, .zone = Area{320, 270, 300, 220}});
        keyboard_.pressHotKey();
        EXPECT_TRUE(waitForMoreClicks(3)) << corvane->story();
        return corvane;
    }

    void expectGoesOn(CorvaneProcess &corvane, const std::string &after) {
        EXPECT_TRUE(waitForMoreClicks(5)) << "after " << after << '\n' << corvane.story();
    }

    void expectStops(CorvaneProcess &corvane) {
        keyboard_.pressHotKey();
        EXPECT_TRUE(corvane.waitForLogBeginning("Clicker stopped after ")) << corvane.story();
        EXPECT_TRUE(staysQuiet());
        EXPECT_TRUE(corvane.process().isRunning());
    }
};

TEST_F(DesktopFaultsTest, TheWindowManagerIsReplaced) {
    const auto corvane = startZoneRun();
    const auto successor = killAndRestart("openbox");
    expectGoesOn(*corvane, "the window manager");
    expectStops(*corvane);
}

/// It sees every click on its windows first, and the server loses clicks that come meanwhile.
TEST_F(DesktopFaultsTest, ASlowWindowManagerLosesNoClick) {
    const int managed = client_.open({.x = 700, .y = 350});
    const auto corvane = start({.clickRate = 100, .maxClicks = 20});
    const Position window = client_.position(managed);
    pointer_.moveTo({window.x + 100, window.y + 100});
    const pid_t windowManager = desktopProgram("openbox");
    kill(windowManager, SIGSTOP);
    keyboard_.pressHotKey();
    EXPECT_TRUE(corvane->waitForLogBeginning("Clicker started: "));
    constexpr std::chrono::milliseconds slow{300};
    EXPECT_FALSE(waitUntil([this] { return clickCount() > 1; }, slow));
    kill(windowManager, SIGCONT);
    ASSERT_TRUE(corvane->waitForLog("Clicker finished after 20 clicks (limit reached)"))
        << corvane->story();
    EXPECT_TRUE(waitUntil([this] { return clickCount() >= 20; }));
    EXPECT_EQ(clickCount(), 20);
}

TEST_F(DesktopFaultsTest, TheCompositorIsReplaced) {
    const auto corvane = startZoneRun();
    desktop_.stopCompositor();
    expectGoesOn(*corvane, "the compositor's end");
    desktop_.startCompositor();
    expectGoesOn(*corvane, "the compositor's return");
    expectStops(*corvane);
}

TEST_F(DesktopFaultsTest, ThePanelIsReplaced) {
    const auto corvane = startZoneRun();
    auto panel = std::make_unique<StatusPanel>(desktop_);
    ASSERT_TRUE(panel->waitForItem());
    panel.reset();
    expectGoesOn(*corvane, "the panel's end");
    panel = std::make_unique<StatusPanel>(desktop_);
    EXPECT_TRUE(panel->waitForItem()) << corvane->story();
    expectGoesOn(*corvane, "the panel");
    expectStops(*corvane);
}

TEST_F(DesktopFaultsTest, TheMessageBusIsReplaced) {
    const auto corvane = startZoneRun();
    desktop_.stopMessageBus();
    expectGoesOn(*corvane, "the message bus's end");
    desktop_.startMessageBus();
    expectGoesOn(*corvane, "the message bus's return");
    expectStops(*corvane);
}

TEST_F(DesktopFaultsTest, TheKeyboardLayoutChanges) {
    const auto corvane = startZoneRun();
    desktop_.run({"setxkbmap", "de"});
    expectGoesOn(*corvane, "the layout");
    ASSERT_TRUE(waitUntil([&] {
        keyboard_.pressHotKey(Keyboard::physicalZ);
        constexpr std::chrono::seconds aMoment{1};
        return corvane->waitForLogBeginning("Clicker stopped after ", 1, aMoment);
    })) << corvane->story();
    EXPECT_TRUE(staysQuiet());
}

TEST_F(DesktopFaultsTest, TheUserChangesHands) {
    const auto corvane = startZoneRun();
    // The server refuses while a button is down.
    ASSERT_TRUE(waitUntil([this] {
        const auto change = desktop_.start({"xmodmap", "-e", "pointer = 3 2 1"});
        return change->waitForEnd() == ProcessEnd{.exitCode = 0};
    }));
    expectGoesOn(*corvane, "the change of hands");
    keyboard_.pressHotKey();
    EXPECT_TRUE(corvane->waitForLogBeginning("Clicker stopped after ")) << corvane->story();
    EXPECT_FALSE(pointer_.isLeftButtonDown());
    // To the target every click was one of the left button.
    for (const ButtonEvent &event : client_.events()) {
        EXPECT_EQ(event.button, 1);
    }
}

TEST_F(DesktopFaultsTest, TheMonitorsChange) {
    const auto corvane = startZoneRun();
    desktop_.run({"xrandr", "--setmonitor", "Left", "640/160x800/200+0+0", "screen"});
    expectGoesOn(*corvane, "the first monitor");
    desktop_.run({"xrandr", "--setmonitor", "Right", "640/160x800/200+640+0", "none"});
    expectGoesOn(*corvane, "the second monitor");
    desktop_.run({"xrandr", "--delmonitor", "Right"});
    expectGoesOn(*corvane, "the loss of a monitor");
    expectStops(*corvane);
}

} // namespace

} // namespace corvane::desktop
