#include "DesktopTest.h"
#include "harness/probes/ProcessTable.h"

#include <string>

namespace corvane::desktop {

namespace {

constexpr std::string_view stopped = "Clicker stopped after ";
constexpr std::string_view finished = "Clicker finished after ";

/// Many runs, one after the other, at the highest rate: every click counted, nothing left behind.
class RoundsTest : public DesktopTest {
  protected:
    RoundsTest() { keepWindowManagerOut(); }

    bool waitForLastLine(std::string_view beginning) const {
        return waitUntil([&] { return corvane_->log().back().starts_with(beginning); });
    }

    void playRounds(int count) {
        for (int round = 0; round < count; ++round) {
            keyboard_.pressHotKey();
            ASSERT_TRUE(waitForLastLine("Clicker started: ")) << round;
            keyboard_.pressHotKey();
            ASSERT_TRUE(waitForLastLine(stopped)) << round;
        }
    }

    /// The sum of what the ends of the runs say.
    long loggedClicks() const {
        long clicks = 0;
        for (const std::string &line : corvane_->log()) {
            for (const std::string_view beginning : {stopped, finished}) {
                if (line.starts_with(beginning)) {
                    clicks += std::stol(line.substr(beginning.size()));
                }
            }
        }
        return clicks;
    }

    /// The thread of the last run may be about to end.
    void expectNoMoreThan(const Holdings &before) {
        Holdings now;
        EXPECT_TRUE(waitUntil([&] {
            now = holdingsOf(corvane_->process().pid());
            return now.openFiles <= before.openFiles && now.threads <= before.threads;
        })) << now.openFiles
            << " open files and " << now.threads << " threads";
        EXPECT_LT(now.memoryKilobytes, before.memoryKilobytes * 11 / 10);
    }

    void playAndExpectExactCounts(int rounds) {
        constexpr int warmUp = 30;
        corvane_ = start({.clickRate = 1000});
        playRounds(warmUp);
        const Holdings before = holdingsOf(corvane_->process().pid());
        playRounds(rounds);
        waitForEverything();
        EXPECT_EQ(clickCount(), loggedClicks());
        EXPECT_EQ(client_.pressCount(), client_.releaseCount());
        expectNoMoreThan(before);
    }

    std::unique_ptr<CorvaneProcess> corvane_;
};

TEST_F(RoundsTest, AHundredRoundsOfStartAndStopAreExact) { playAndExpectExactCounts(100); }

/// The same for longer; runs only with --soak.
class RoundsSoak : public RoundsTest {};

TEST_F(RoundsSoak, TenThousandRoundsOfStartAndStopAreExact) { playAndExpectExactCounts(10'000); }

TEST_F(RoundsSoak, TwoHundredThousandClicksAreExact) {
    constexpr int clicks = 200'000;
    constexpr std::chrono::hours farTooLong{2};
    corvane_ = start({.clickRate = 1000, .maxClicks = clicks});
    keyboard_.pressHotKey();
    ASSERT_TRUE(waitForMoreClicks(1000)) << corvane_->story();
    const Holdings before = holdingsOf(corvane_->process().pid());
    ASSERT_TRUE(corvane_->waitForLogBeginning(finished, 1, farTooLong)) << corvane_->story();
    waitForEverything();
    EXPECT_EQ(clickCount(), clicks);
    EXPECT_EQ(client_.pressCount(), client_.releaseCount());
    expectNoMoreThan(before);
}

} // namespace

} // namespace corvane::desktop
