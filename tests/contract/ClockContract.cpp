#include "BackEnd.h"
#include "platform/ContinuousClock.h"
#include "platform/Platform.h"

#include <atomic>
#include <chrono>
#include <thread>
#include <vector>

namespace corvane::contract {

namespace {

using std::chrono::hours;
using std::chrono::milliseconds;
using std::chrono::seconds;

/// More than any machine is late, less than what a broken unit of time would give.
constexpr seconds atMostLate{20};

class ClockContract : public ContractTest {
  protected:
    /// Has another thread wait and lets time pass until it is through.
    void waitElsewhere(platform::CancellableWait &wait, platform::Instant deadline) {
        std::atomic<bool> isThrough = false;
        std::thread waiter([&] {
            wait.waitUntil(deadline);
            isThrough = true;
        });
        EXPECT_TRUE(backEnd().turnUntil([&isThrough] { return isThrough.load(); }));
        waiter.join();
    }

    platform::ContinuousClock &clock() { return platform().clock(); }
};

TEST_P(ClockContract, NeverGoesBack) {
    auto before = clock().now();
    for (int reading = 0; reading < 1000; ++reading) {
        const auto now = clock().now();
        ASSERT_GE(now, before);
        before = now;
    }
}

TEST_P(ClockContract, ASleepLastsItsDuration) {
    const auto start = clock().now();
    clock().sleepFor(milliseconds(10));
    EXPECT_GE(clock().now() - start, milliseconds(10));
    EXPECT_LT(clock().now() - start, atMostLate);
}

TEST_P(ClockContract, AWaitLastsUntilItsDeadline) {
    const auto wait = clock().makeWait();
    const auto deadline = clock().now() + milliseconds(20);
    waitElsewhere(*wait, deadline);
    EXPECT_GE(clock().now(), deadline);
    EXPECT_LT(clock().now(), deadline + atMostLate);
    EXPECT_FALSE(wait->isCancelled());
}

TEST_P(ClockContract, AWaitServesManyDeadlines) {
    const auto wait = clock().makeWait();
    for (int turn = 0; turn < 5; ++turn) {
        const auto deadline = clock().now() + milliseconds(2);
        waitElsewhere(*wait, deadline);
        EXPECT_GE(clock().now(), deadline);
    }
}

TEST_P(ClockContract, ADeadlineThatHasPassedIsNotWaitedFor) {
    const auto wait = clock().makeWait();
    wait->waitUntil(clock().now());
    wait->waitUntil(clock().now() - seconds(1));
    wait->waitUntil(platform::Instant::zero());
    wait->waitUntil(platform::Instant(-1));
    EXPECT_FALSE(wait->isCancelled());
}

TEST_P(ClockContract, WhatTheDeadlineNeedsIsPreparedOnceJustBeforeIt) {
    const auto wait = clock().makeWait();
    for (const milliseconds duration : {milliseconds(1), milliseconds(20), milliseconds(50)}) {
        const auto deadline = clock().now() + duration;
        std::vector<platform::Instant> calls;
        std::thread::id caller;
        std::atomic<bool> isThrough = false;
        std::thread waiter([&] {
            wait->waitUntil(deadline, [&] {
                calls.push_back(clock().now());
                caller = std::this_thread::get_id();
            });
            isThrough = true;
        });
        const auto waiting = waiter.get_id();
        EXPECT_TRUE(backEnd().turnUntil([&isThrough] { return isThrough.load(); }));
        waiter.join();
        EXPECT_GE(clock().now(), deadline);
        ASSERT_EQ(calls.size(), 1U);
        EXPECT_GT(calls.front(), deadline - milliseconds(1));
        EXPECT_EQ(caller, waiting);
    }
}

TEST_P(ClockContract, ADeadlineThatHasPassedIsPreparedForAtOnce) {
    const auto wait = clock().makeWait();
    int calls = 0;
    wait->waitUntil(clock().now() - seconds(1), [&calls] { ++calls; });
    EXPECT_EQ(calls, 1);
}

TEST_P(ClockContract, NothingIsPreparedOnceCancelled) {
    const auto wait = clock().makeWait();
    std::atomic<int> calls = 0;
    std::thread waiter([&] { wait->waitUntil(clock().now() + hours(1), [&calls] { ++calls; }); });
    wait->cancel();
    waiter.join();
    wait->waitUntil(clock().now(), [&calls] { ++calls; });
    EXPECT_EQ(calls, 0);
}

TEST_P(ClockContract, CancellingEndsAWaitUnderWay) {
    const auto wait = clock().makeWait();
    const auto start = clock().now();
    std::thread waiter([&] { wait->waitUntil(start + hours(1)); });
    wait->cancel();
    waiter.join();
    EXPECT_TRUE(wait->isCancelled());
    EXPECT_LT(clock().now(), start + hours(1));
}

TEST_P(ClockContract, CancellingEndsEveryLaterWait) {
    const auto wait = clock().makeWait();
    wait->cancel();
    wait->cancel();
    const auto start = clock().now();
    wait->waitUntil(start + hours(1));
    wait->waitUntil(start + hours(1));
    EXPECT_LT(clock().now(), start + hours(1));
}

TEST_P(ClockContract, CancellingOneWaitLeavesAnotherAlone) {
    const auto cancelled = clock().makeWait();
    const auto other = clock().makeWait();
    cancelled->cancel();
    const auto deadline = clock().now() + milliseconds(5);
    waitElsewhere(*other, deadline);
    EXPECT_FALSE(other->isCancelled());
    EXPECT_GE(clock().now(), deadline);
}

CORVANE_CONTRACT(ClockContract);

} // namespace

} // namespace corvane::contract
