#include "DesktopTest.h"
#include "harness/probes/ProcessTable.h"

#include <csignal>
#include <vector>

namespace corvane::desktop {

namespace {

constexpr const char *released = "Released the mouse button after an unexpected end";

/// The program dies in the middle of a click.
class SuddenEndTest : public DesktopTest {
  protected:
    SuddenEndTest() { keepWindowManagerOut(); }

    /// Starts a run and stops the program's process, not its run, while the button is down.
    void freezeWithButtonDown(CorvaneProcess &corvane) {
        keyboard_.pressHotKey();
        ASSERT_TRUE(waitUntil([&] {
            if (!pointer_.isLeftButtonDown()) {
                return false;
            }
            corvane.process().signal(SIGSTOP);
            if (waitUntil([&] { return isStopped(corvane.process().pid()); }) &&
                pointer_.isLeftButtonDown()) {
                return true;
            }
            corvane.process().signal(SIGCONT);
            return false;
        })) << corvane.story();
    }

    void expectButtonReleased() {
        EXPECT_TRUE(waitUntil([this] { return !pointer_.isLeftButtonDown(); }));
        waitForEverything();
        EXPECT_EQ(client_.pressCount(), client_.releaseCount());
        EXPECT_TRUE(staysQuiet());
    }

    static void expectUnexpectedEnd(CorvaneProcess &corvane) {
        const auto end = corvane.process().waitForEnd();
        ASSERT_TRUE(end.has_value());
        EXPECT_NE(end, (ProcessEnd{.exitCode = 0})) << corvane.story();
    }
};

/// Unusual signals, and those of a crash.
class SuddenSignalTest : public SuddenEndTest, public testing::WithParamInterface<int> {};

TEST_P(SuddenSignalTest, TheButtonIsUpAfterwards) {
    const auto corvane = start({.clickRate = 100});
    ASSERT_NO_FATAL_FAILURE(freezeWithButtonDown(*corvane));
    const auto helpers = childrenOf(corvane->process().pid());
    corvane->process().signal(GetParam());
    corvane->process().signal(SIGCONT);
    ASSERT_NO_FATAL_FAILURE(expectUnexpectedEnd(*corvane));
    expectButtonReleased();
    EXPECT_TRUE(corvane->waitForLog(released)) << corvane->story();
    for (const pid_t helper : helpers) {
        EXPECT_TRUE(waitUntil([&] { return !isAlive(helper); }));
    }
}

INSTANTIATE_TEST_SUITE_P(Signals, SuddenSignalTest,
                         testing::Values(SIGKILL, SIGQUIT, SIGSEGV, SIGABRT, SIGBUS, SIGFPE, SIGILL,
                                         SIGTRAP, SIGSYS, SIGUSR1, SIGUSR2, SIGALRM, SIGVTALRM,
                                         SIGPROF, SIGXCPU, SIGPOLL, SIGPWR, SIGSTKFLT),
                         [](const auto &each) {
                             return std::string("signal") + sigabbrev_np(each.param);
                         });

TEST_F(SuddenEndTest, BetweenTwoClicksNothingIsLeftToDo) {
    const auto corvane = start({.clickRate = 60, .timeUnit = "m"});
    keyboard_.pressHotKey();
    ASSERT_TRUE(client_.waitForClicks(1)) << corvane->story();
    corvane->process().signal(SIGKILL);
    ASSERT_NO_FATAL_FAILURE(expectUnexpectedEnd(*corvane));
    expectButtonReleased();
    EXPECT_EQ(corvane->logCount(released), 0);
}

TEST_F(SuddenEndTest, TheNextStartReleasesWhatNobodyCould) {
    const auto corvane = start({.clickRate = 100});
    ASSERT_NO_FATAL_FAILURE(freezeWithButtonDown(*corvane));
    const auto helpers = childrenOf(corvane->process().pid());
    ASSERT_EQ(helpers.size(), 1);
    kill(helpers.front(), SIGKILL);
    corvane->process().signal(SIGKILL);
    ASSERT_NO_FATAL_FAILURE(expectUnexpectedEnd(*corvane));
    ASSERT_TRUE(pointer_.isLeftButtonDown());

    const auto next = start({.clickRate = 100});
    expectButtonReleased();
    EXPECT_EQ(next->logCount(released), 1) << next->story();
}

TEST_F(SuddenEndTest, AButtonTheUserHoldsIsLeftAlone) {
    const auto corvane = start({.clickRate = 60, .timeUnit = "m"});
    keyboard_.pressHotKey();
    ASSERT_TRUE(client_.waitForClicks(1)) << corvane->story();
    pointer_.press();
    corvane->process().signal(SIGKILL);
    ASSERT_NO_FATAL_FAILURE(expectUnexpectedEnd(*corvane));
    const auto next = start({});
    EXPECT_TRUE(pointer_.isLeftButtonDown());
    pointer_.release();
}

TEST_F(SuddenEndTest, AnOrderlyEndLeavesNoProcessBehind) {
    const auto corvane = start({});
    const auto helpers = childrenOf(corvane->process().pid());
    ASSERT_EQ(helpers.size(), 1);
    corvane->process().signal(SIGTERM);
    EXPECT_EQ(corvane->process().waitForEnd(), (ProcessEnd{.exitCode = 0})) << corvane->story();
    EXPECT_TRUE(waitUntil([&] { return !isAlive(helpers.front()); }));
}

} // namespace

} // namespace corvane::desktop
