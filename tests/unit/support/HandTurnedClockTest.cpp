#include "support/recorder/HandTurnedClock.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>

namespace corvane::testing {
namespace {

using std::chrono::milliseconds;

TEST(HandTurnedClockTest, StandsStillUntilItIsTurned) {
    HandTurnedClock clock;
    const platform::Instant start = clock.now();
    EXPECT_EQ(clock.now(), start);
    clock.advance(milliseconds(100));
    EXPECT_EQ(clock.now(), start + milliseconds(100));
    clock.advanceTo(start);
    EXPECT_EQ(clock.now(), start + milliseconds(100));
}

TEST(HandTurnedClockTest, ReleasesAWaitingThreadAtItsDeadlineOnly) {
    HandTurnedClock clock;
    const auto wait = clock.makeWait();
    const platform::Instant deadline = clock.now() + milliseconds(100);
    std::atomic isPast = false;
    std::thread thread([&] {
        wait->waitUntil(deadline);
        isPast = true;
    });
    ASSERT_TRUE(clock.awaitBlocked());
    EXPECT_EQ(clock.deadlines(), std::vector{deadline});

    clock.advance(milliseconds(99));
    EXPECT_EQ(clock.blockedCount(), 1U);
    EXPECT_FALSE(isPast);

    clock.advance(milliseconds(1));
    EXPECT_EQ(clock.blockedCount(), 0U);
    thread.join();
    EXPECT_TRUE(isPast);
    EXPECT_FALSE(wait->isCancelled());
}

TEST(HandTurnedClockTest, PreparesForADeadlineBeforeItTurnsToIt) {
    HandTurnedClock clock;
    const auto wait = clock.makeWait();
    const platform::Instant deadline = clock.now() + milliseconds(100);
    std::vector<platform::Instant> calls;
    std::thread thread([&] { wait->waitUntil(deadline, [&] { calls.push_back(clock.now()); }); });
    ASSERT_TRUE(clock.awaitBlocked());
    clock.advance(milliseconds(99));
    EXPECT_TRUE(calls.empty());
    clock.advance(milliseconds(10));
    ASSERT_EQ(calls.size(), 1U);
    EXPECT_GT(calls.front(), deadline - milliseconds(1));
    EXPECT_LT(calls.front(), deadline);
    thread.join();
    EXPECT_EQ(calls.size(), 1U);
}

TEST(HandTurnedClockTest, ATestCanFollowALoopStepByStep) {
    HandTurnedClock clock;
    const auto wait = clock.makeWait();
    std::atomic passes = 0;
    std::thread thread([&] {
        while (!wait->isCancelled()) {
            ++passes;
            wait->waitUntil(clock.now() + milliseconds(10));
        }
    });
    for (int expected = 1; expected <= 200; ++expected) {
        ASSERT_TRUE(clock.awaitBlocked());
        ASSERT_EQ(passes, expected);
        clock.advance(milliseconds(10));
    }
    wait->cancel();
    thread.join();
}

TEST(HandTurnedClockTest, CancellingEndsThisAndEveryLaterWait) {
    HandTurnedClock clock;
    const auto wait = clock.makeWait();
    const platform::Instant start = clock.now();
    std::thread thread([&] { wait->waitUntil(start + milliseconds(100)); });
    ASSERT_TRUE(clock.awaitBlocked());
    wait->cancel();
    thread.join();
    EXPECT_TRUE(wait->isCancelled());
    wait->waitUntil(start + milliseconds(100));
    EXPECT_EQ(clock.now(), start);
}

TEST(HandTurnedClockTest, ASleepTurnsTheClockItself) {
    HandTurnedClock clock;
    const platform::Instant start = clock.now();
    clock.sleepFor(milliseconds(10));
    EXPECT_EQ(clock.now(), start + milliseconds(10));
    EXPECT_EQ(clock.sleeps(), std::vector<HandTurnedClock::Duration>{milliseconds(10)});
}

TEST(HandTurnedClockTest, ASleepBlocksWhereATestWantsToLookAtIt) {
    HandTurnedClock clock;
    clock.setSleepsBlock(true);
    std::atomic sleeps = 0;
    std::thread thread([&] {
        clock.sleepFor(milliseconds(10));
        ++sleeps;
        clock.sleepFor(milliseconds(10));
        ++sleeps;
    });
    ASSERT_TRUE(clock.awaitBlocked());
    EXPECT_EQ(sleeps, 0);
    clock.advance(milliseconds(10));
    ASSERT_TRUE(clock.awaitBlocked());
    EXPECT_EQ(sleeps, 1);
    clock.setSleepsBlock(false);
    thread.join();
    EXPECT_EQ(sleeps, 2);
}

} // namespace
} // namespace corvane::testing
