#include "DesktopTest.h"
#include "harness/actors/StatusPanel.h"
#include "harness/probes/ProcessTable.h"

#include <csignal>

namespace corvane::desktop {

namespace {

/// The panel is stopped: it keeps its name on the message bus and answers nothing.
class StoppedPanelTest : public DesktopTest {
  protected:
    /// Whoever waits for an answer waits longer: the message bus library gives up after 25 s.
    static constexpr std::chrono::seconds soon{12};

    StoppedPanelTest() { keepWindowManagerOut(); }

    /// A stopped process handles the signal to end only once it is continued.
    void TearDown() override { continuePanel(); }

    void stopPanel() {
        panel_.process().signal(SIGSTOP);
        ASSERT_TRUE(waitUntil([this] { return isStopped(panel_.process().pid()); }));
    }

    void continuePanel() { panel_.process().signal(SIGCONT); }

    void expectHotKeyStartsARun(CorvaneProcess &corvane) {
        const int before = clickCount();
        keyboard_.pressHotKey();
        EXPECT_TRUE(waitUntil([&] { return clickCount() >= before + 3; }, soon)) << corvane.story();
    }

    void expectHotKeyStopsTheRun(CorvaneProcess &corvane) {
        keyboard_.pressHotKey();
        EXPECT_TRUE(corvane.waitForLogBeginning("Clicker stopped after ", 1, soon))
            << corvane.story();
        EXPECT_TRUE(staysQuiet());
    }

    void expectItemWorks(CorvaneProcess &corvane) {
        ASSERT_TRUE(waitUntil([this] { return panel_.choose("Start"); })) << corvane.story();
        EXPECT_TRUE(waitForMoreClicks(3)) << corvane.story();
        EXPECT_TRUE(waitUntil([this] { return panel_.choose("Stop"); })) << corvane.story();
        EXPECT_TRUE(corvane.waitForLogBeginning("Clicker stopped after ", 2)) << corvane.story();
    }

    StatusPanel panel_{desktop_};
};

TEST_F(StoppedPanelTest, ARunStartsAndStopsByTheHotKeyMeanwhile) {
    const auto corvane = start({.clickRate = 50});
    ASSERT_TRUE(panel_.waitForItem()) << corvane->story();
    stopPanel();
    expectHotKeyStartsARun(*corvane);
    expectHotKeyStopsTheRun(*corvane);
    continuePanel();
    expectItemWorks(*corvane);
}

TEST_F(StoppedPanelTest, ItGetsTheItemWhenItGoesOn) {
    stopPanel();
    const auto corvane = start({.clickRate = 50});
    expectHotKeyStartsARun(*corvane);
    expectHotKeyStopsTheRun(*corvane);
    EXPECT_EQ(panel_.itemCount(), 0);
    continuePanel();
    ASSERT_TRUE(panel_.waitForItem()) << corvane->story();
    expectItemWorks(*corvane);
}

TEST_F(StoppedPanelTest, TheProgramEndsBySignalWithoutIt) {
    const auto corvane = start({.clickRate = 50});
    ASSERT_TRUE(panel_.waitForItem()) << corvane->story();
    stopPanel();
    expectHotKeyStartsARun(*corvane);
    corvane->process().signal(SIGTERM);
    EXPECT_EQ(corvane->process().waitForEnd(soon), (ProcessEnd{.exitCode = 0})) << corvane->story();
    EXPECT_TRUE(corvane->waitForLogBeginning("Clicker stopped after ")) << corvane->story();
    EXPECT_FALSE(pointer_.isLeftButtonDown());
}

TEST_F(StoppedPanelTest, TheProgramQuitsBeforeItHasAnswered) {
    stopPanel();
    const auto corvane = start({.clickRate = 50});
    expectHotKeyStartsARun(*corvane);
    CorvaneProcess call(desktop_, {.arguments = {"quit"}});
    EXPECT_EQ(call.process().waitForEnd(soon), (ProcessEnd{.exitCode = 0})) << call.story();
    EXPECT_EQ(corvane->process().waitForEnd(soon), (ProcessEnd{.exitCode = 0})) << corvane->story();
    EXPECT_FALSE(pointer_.isLeftButtonDown());
}

} // namespace

} // namespace corvane::desktop
