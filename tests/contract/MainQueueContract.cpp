#include "BackEnd.h"
#include "platform/ContinuousClock.h"
#include "platform/MainQueue.h"
#include "platform/Platform.h"

#include <gmock/gmock.h>

#include <chrono>
#include <future>
#include <memory>
#include <thread>
#include <vector>

namespace corvane::contract {

namespace {

using std::chrono::hours;
using std::chrono::milliseconds;
using testing::ElementsAre;

class MainQueueContract : public ContractTest {
  protected:
    platform::MainQueue &queue() { return platform().mainQueue(); }

    /// Lets time pass until everything posted or due before has run.
    void passTime(milliseconds duration) {
        bool isOver = false;
        const auto end = queue().after(duration, [&isOver] { isOver = true; });
        EXPECT_TRUE(backEnd().turnUntil([&isOver] { return isOver; }));
    }

    std::vector<int> ran_;
};

TEST_P(MainQueueContract, RunsWorkLaterAndInOrder) {
    for (const int number : {1, 2, 3}) {
        queue().post([this, number] { ran_.push_back(number); });
    }
    EXPECT_TRUE(ran_.empty());
    ASSERT_TRUE(backEnd().turnUntil([this] { return ran_.size() == 3; }));
    EXPECT_THAT(ran_, ElementsAre(1, 2, 3));
}

TEST_P(MainQueueContract, WorkPostedByWorkRunsAfterIt) {
    queue().post([this] {
        queue().post([this] { ran_.push_back(3); });
        ran_.push_back(1);
    });
    queue().post([this] { ran_.push_back(2); });
    ASSERT_TRUE(backEnd().turnUntil([this] { return ran_.size() == 3; }));
    EXPECT_THAT(ran_, ElementsAre(1, 2, 3));
}

TEST_P(MainQueueContract, RunsTheWorkOfOtherThreadsOnTheMainThread) {
    const auto mainThread = std::this_thread::get_id();
    std::vector<std::thread::id> threads;
    constexpr int count = 100;
    const auto posting = std::async(std::launch::async, [&] {
        for (int number = 0; number < count; ++number) {
            queue().post([&, number] {
                threads.push_back(std::this_thread::get_id());
                ran_.push_back(number);
            });
        }
    });
    ASSERT_TRUE(backEnd().turnUntil([this] { return ran_.size() == count; }));
    posting.wait();
    EXPECT_THAT(threads, testing::Each(mainThread));
    EXPECT_TRUE(std::ranges::is_sorted(ran_));
}

TEST_P(MainQueueContract, ADelayedCallRunsOnceAndNotBeforeItsTime) {
    const auto start = platform().clock().now();
    platform::Instant fired{};
    const auto timer = queue().after(milliseconds(20), [&] {
        fired = platform().clock().now();
        ran_.push_back(1);
    });
    ASSERT_TRUE(backEnd().turnUntil([this] { return !ran_.empty(); }));
    EXPECT_GE(fired - start, milliseconds(19));
    passTime(milliseconds(50));
    EXPECT_THAT(ran_, ElementsAre(1));
}

TEST_P(MainQueueContract, ACallWithoutDelayIsStillALaterOne) {
    const auto timer = queue().after(milliseconds(0), [this] { ran_.push_back(1); });
    EXPECT_TRUE(ran_.empty());
    EXPECT_TRUE(backEnd().turnUntil([this] { return ran_.size() == 1; }));
}

TEST_P(MainQueueContract, DelayedCallsRunInTheOrderOfTheirTimes) {
    const auto later = queue().after(milliseconds(40), [this] { ran_.push_back(2); });
    const auto sooner = queue().after(milliseconds(5), [this] { ran_.push_back(1); });
    ASSERT_TRUE(backEnd().turnUntil([this] { return ran_.size() == 2; }));
    EXPECT_THAT(ran_, ElementsAre(1, 2));
}

TEST_P(MainQueueContract, ARepeatingCallBeginsAfterOnePeriodAndGoesOn) {
    const auto start = platform().clock().now();
    const auto timer = queue().every(milliseconds(10), [this] { ran_.push_back(1); });
    EXPECT_TRUE(ran_.empty());
    ASSERT_TRUE(backEnd().turnUntil([this] { return ran_.size() == 3; }));
    EXPECT_GE(platform().clock().now() - start, milliseconds(27));
}

TEST_P(MainQueueContract, ADestroyedTimerNeverFires) {
    auto once = queue().after(milliseconds(5), [this] { ran_.push_back(1); });
    auto repeating = queue().every(milliseconds(5), [this] { ran_.push_back(2); });
    auto atOnce = queue().after(milliseconds(0), [this] { ran_.push_back(3); });
    once.reset();
    repeating.reset();
    atOnce.reset();
    passTime(milliseconds(30));
    EXPECT_TRUE(ran_.empty());
}

TEST_P(MainQueueContract, ATimerMayEndInsideItsOwnCall) {
    std::unique_ptr<platform::Timer> timer;
    timer = queue().every(milliseconds(1), [this, &timer, held = std::make_shared<int>(7)] {
        timer.reset();
        // What the call holds lives until it returns.
        ran_.push_back(*held);
    });
    passTime(milliseconds(30));
    EXPECT_THAT(ran_, ElementsAre(7));
}

TEST_P(MainQueueContract, ATimerMayBeReplacedInsideItsOwnCall) {
    std::unique_ptr<platform::Timer> timer;
    timer = queue().after(milliseconds(1), [this, &timer] {
        timer = queue().after(milliseconds(1), [this] { ran_.push_back(2); });
        ran_.push_back(1);
    });
    ASSERT_TRUE(backEnd().turnUntil([this] { return ran_.size() == 2; }));
    EXPECT_THAT(ran_, ElementsAre(1, 2));
}

TEST_P(MainQueueContract, ACallMayKeepTheQueueTurning) {
    const auto outer = queue().after(milliseconds(1), [this] {
        const auto inner = queue().after(milliseconds(1), [this] { ran_.push_back(1); });
        EXPECT_TRUE(backEnd().turnUntil([this] { return !ran_.empty(); }));
        ran_.push_back(2);
    });
    ASSERT_TRUE(backEnd().turnUntil([this] { return ran_.size() == 2; }));
    EXPECT_THAT(ran_, ElementsAre(1, 2));
}

TEST_P(MainQueueContract, CallsThatWereMissedAreMadeUpForByOne) {
    const auto timer = queue().every(milliseconds(1), [this] {
        ran_.push_back(1);
        if (ran_.size() == 1) {
            platform().clock().sleepFor(milliseconds(50));
        }
    });
    ASSERT_TRUE(backEnd().turnUntil([this] { return ran_.size() >= 3; }));
    EXPECT_LT(ran_.size(), 10U);
}

CORVANE_CONTRACT(MainQueueContract);

} // namespace

} // namespace corvane::contract
