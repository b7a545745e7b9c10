#include "support/recorder/RecordingPlatform.h"

#include <gtest/gtest.h>

#include <string>
#include <thread>
#include <vector>

namespace corvane::testing {
namespace {

using std::chrono::milliseconds;

class RecordingMainQueueTest : public ::testing::Test {
  protected:
    RecordingPlatform platform_;
    RecordingMainQueue &queue_ = platform_.mainQueue();
    std::vector<std::string> order_;

    std::function<void()> note(const std::string &text) {
        return [this, text] { order_.push_back(text); };
    }
};

TEST_F(RecordingMainQueueTest, RunsWorkInTheOrderPostedInALaterTurn) {
    queue_.post([this] {
        order_.emplace_back("first");
        queue_.post(note("third"));
    });
    queue_.post(note("second"));
    EXPECT_TRUE(order_.empty());
    queue_.turn();
    EXPECT_EQ(order_, (std::vector<std::string>{"first", "second"}));
    queue_.turn();
    EXPECT_EQ(order_.back(), "third");
}

TEST_F(RecordingMainQueueTest, WaitsForTheWorkOfOtherThreads) {
    std::thread thread([this] { queue_.post(note("posted")); });
    EXPECT_TRUE(queue_.turnUntil([this] { return !order_.empty(); }));
    thread.join();
}

TEST_F(RecordingMainQueueTest, TimersFireByTheHandTurnedClock) {
    const auto once = queue_.after(milliseconds(25), note("once"));
    const auto often = queue_.every(milliseconds(10), note("often"));
    platform_.advance(milliseconds(30));
    EXPECT_EQ(order_, (std::vector<std::string>{"often", "often", "once", "often"}));
    EXPECT_EQ(queue_.timerCount(), 1U);
}

TEST_F(RecordingMainQueueTest, ADestroyedTimerStopsAlsoFromWithinItsOwnCall) {
    std::unique_ptr<platform::Timer> timer;
    timer = queue_.every(milliseconds(10), [&] {
        order_.emplace_back("fired");
        timer.reset();
        order_.emplace_back("finished");
    });
    platform_.advance(milliseconds(50));
    EXPECT_EQ(order_, (std::vector<std::string>{"fired", "finished"}));
    EXPECT_EQ(queue_.timerCount(), 0U);
}

TEST_F(RecordingMainQueueTest, MissedPeriodsAreMadeUpForByOneCall) {
    const auto timer = queue_.every(milliseconds(10), note("fired"));
    platform_.clock().advance(milliseconds(35));
    queue_.turnUntilIdle();
    EXPECT_EQ(order_.size(), 1U);
    platform_.advance(milliseconds(5));
    EXPECT_EQ(order_.size(), 2U);
}

} // namespace
} // namespace corvane::testing
