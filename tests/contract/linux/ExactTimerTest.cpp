#include "platform/linux/timing/ExactTimer.h"

#include "EventLoop.h"
#include "platform/linux/timing/Clock.h"

#include <QCoreApplication>
#include <gtest/gtest.h>

#include <chrono>

namespace corvane::contract {

namespace {

using namespace std::chrono_literals;

class ExactTimerTest : public testing::Test {
  protected:
    /// Lets the event loop turn a few times without waiting.
    static void turn() {
        for (int count = 0; count < 5; ++count) {
            QCoreApplication::processEvents();
        }
    }

    linux::Clock clock_;
    int calls_ = 0;
    linux::ExactTimer timer_{[this] { ++calls_; }};
};

TEST_F(ExactTimerTest, CallsOnceAndNotBefore) {
    const auto moment = clock_.now() + 5ms;
    EXPECT_TRUE(timer_.set(moment));
    EXPECT_TRUE(turnUntil([this] { return calls_ > 0; }));
    EXPECT_GE(clock_.now(), moment);
    turn();
    EXPECT_EQ(calls_, 1);
}

TEST_F(ExactTimerTest, AMomentThatHasPassedIsDueAtOnce) {
    timer_.set(clock_.now() - 1s);
    EXPECT_TRUE(turnUntil([this] { return calls_ == 1; }));
    timer_.set(clock_.now() - 1s);
    EXPECT_TRUE(turnUntil([this] { return calls_ == 2; }));
}

TEST_F(ExactTimerTest, TheLaterSettingCounts) {
    timer_.set(clock_.now() - 1s);
    timer_.set(clock_.now() + 1h);
    turn();
    EXPECT_EQ(calls_, 0);
    timer_.set(clock_.now());
    EXPECT_TRUE(turnUntil([this] { return calls_ == 1; }));
}

TEST_F(ExactTimerTest, ClearedItCallsNothing) {
    timer_.set(clock_.now() - 1s);
    timer_.clear();
    turn();
    EXPECT_EQ(calls_, 0);
}

TEST_F(ExactTimerTest, MayBeSetAnewByWhatItCalls) {
    int calls = 0;
    linux::ExactTimer timer([&] {
        if (++calls < 3) {
            timer.set(clock_.now() + 1ms);
        }
    });
    timer.set(clock_.now());
    EXPECT_TRUE(turnUntil([&calls] { return calls == 3; }));
    turn();
    EXPECT_EQ(calls, 3);
}

TEST_F(ExactTimerTest, CallsAgainWhileWhatItCallsTurnsTheEventLoop) {
    int calls = 0;
    linux::ExactTimer timer([&calls] {
        if (++calls == 1) {
            turnUntil([&calls] { return calls > 1; });
        }
    });
    timer.set(clock_.now());
    EXPECT_TRUE(turnUntil([&calls] { return calls > 1; }));
}

} // namespace

} // namespace corvane::contract
