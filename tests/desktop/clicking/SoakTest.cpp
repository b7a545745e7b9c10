#include "DesktopTest.h"
#include "harness/probes/ProcessTable.h"
#include "harness/probes/WindowTree.h"

namespace corvane::desktop {

namespace {

/// Long runs: what the program holds does not grow with the clicks.
class LongRunTest : public DesktopTest {
  protected:
    LongRunTest() : DesktopTest({.hasCompositor = true, .hasPanel = true}) {
        keepWindowManagerOut();
    }

    /// The last ripple is gone, so the program has taken note of the end of its run.
    bool hasNoRipples() const {
        for (const SeenWindow &window : corvaneWindows(desktop_.connection())) {
            if (window.isOverride && window.area.width == 50) {
                return false;
            }
        }
        return true;
    }

    Holdings holdings() const { return holdingsOf(corvane_->process().pid()); }

    /// What a run has used is given back a moment after its end.
    void expectNoMoreThan(const Holdings &before) const {
        Holdings after;
        const bool isGivenBack = waitUntil([&] {
            after = holdings();
            return after.openFiles <= before.openFiles && after.threads <= before.threads;
        });
        EXPECT_TRUE(isGivenBack) << after.openFiles << " files after " << before.openFiles << ", "
                                 << after.threads << " threads after " << before.threads;
        EXPECT_LT(after.memoryKilobytes, before.memoryKilobytes * 11 / 10);
    }

    /// Fifty clicks a second in a zone with its outline, until the limit that was set.
    void playFiftyASecond(int limit) {
        constexpr std::chrono::minutes farTooLong{5};
        constexpr int warmUp = 50;
        corvane_ = start({.clickMode = "zone",
                          .clickRate = 50,
                          .maxClicks = limit,
                          .zone = Area{400, 320, 200, 160}});
        // A stop before the limit: the pictures of the animation are painted, the windows made.
        keyboard_.pressHotKey();
        ASSERT_TRUE(waitForMoreClicks(warmUp)) << corvane_->story();
        stopAtOnce();
        const Holdings before = holdings();
        const Holdings server = holdingsOf(desktop_.serverPid());

        keyboard_.pressHotKey();
        ASSERT_TRUE(corvane_->waitForLogBeginning("Clicker finished after ", 1, farTooLong))
            << corvane_->story();
        ASSERT_TRUE(waitUntil([this] { return hasNoRipples(); }));
        expectNoMoreThan(before);
        EXPECT_LT(holdingsOf(desktop_.serverPid()).memoryKilobytes,
                  server.memoryKilobytes * 11 / 10);

        keyboard_.pressHotKey();
        ASSERT_TRUE(waitForMoreClicks(warmUp)) << corvane_->story();
        stopAtOnce();
    }

    /// Stops the run and looks for what it leaves.
    void stopAtOnce() {
        // The time of ten clicks is an instant for a user and much for a busy machine.
        constexpr int mostClicks = 10;
        // Windows for the next ripples are kept, but no more than these.
        constexpr int mostWindows = 12;
        const int before = clickCount();
        keyboard_.pressHotKey();
        ASSERT_TRUE(corvane_->waitForLogBeginning("Clicker stopped after ", ++stops_))
            << corvane_->story();
        waitForEverything();
        EXPECT_LE(clickCount(), before + mostClicks);
        EXPECT_TRUE(waitUntil([this] { return hasNoRipples(); }));
        EXPECT_LE(corvaneWindowCount(desktop_.connection()), mostWindows);
    }

    std::unique_ptr<CorvaneProcess> corvane_;
    int stops_ = 0;
};

TEST_F(LongRunTest, FiftyClicksASecondLeaveNothingBehindAndStopAtOnce) { playFiftyASecond(100); }

/// The same for longer; runs only with --soak.
class Soak : public LongRunTest {
  protected:
    /// The limit of each run counts its clicks.
    void playRuns(int count) {
        for (int run = 0; run < count; ++run) {
            keyboard_.pressHotKey();
            ASSERT_TRUE(corvane_->waitForLog(finished, ++runs_)) << corvane_->log().back();
            ASSERT_TRUE(waitUntil([this] { return hasNoRipples(); }));
        }
    }

    static constexpr const char *finished = "Clicker finished after 1000 clicks (limit reached)";
    int runs_ = 0;
};

TEST_F(Soak, AMinuteAtFiftyClicksASecondLeavesNothingBehind) {
    // With the time the button is held, each takes thirty milliseconds.
    playFiftyASecond(2000);
}

TEST_F(Soak, TenThousandsOfClicksLeaveNothingBehind) {
    corvane_ = start({.clickRate = 200, .maxClicks = 1000});
    playRuns(2);
    const Holdings before = holdings();
    playRuns(18);
    waitForEverything();

    EXPECT_EQ(clickCount(), 20'000);
    expectNoMoreThan(before);
}

} // namespace

} // namespace corvane::desktop
