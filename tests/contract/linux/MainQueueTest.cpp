#include "platform/linux/timing/MainQueue.h"

#include "EventLoop.h"
#include "platform/linux/timing/Clock.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>

namespace corvane::contract {

namespace {

using std::chrono::microseconds;
using std::chrono::nanoseconds;

class MainQueueTest : public testing::Test {
  protected:
    nanoseconds timeUntilCalled(nanoseconds delay) {
        const auto start = clock_.now();
        platform::Instant called{};
        const auto timer = queue_.after(delay, [&] { called = clock_.now(); });
        EXPECT_TRUE(turnUntil([&called] { return called > platform::Instant(0); }));
        return called - start;
    }

    linux::Clock clock_;
    linux::MainQueue queue_;
};

TEST_F(MainQueueTest, ADelayIsNotRoundedUpToWholeMilliseconds) {
    constexpr microseconds delay(1500);
    constexpr microseconds closeEnough(1900);
    // A busy machine may be late most of the time, but hardly every time.
    constexpr int attempts = 2000;
    nanoseconds shortest = timeUntilCalled(delay);
    for (int attempt = 0; attempt < attempts && shortest > closeEnough; ++attempt) {
        shortest = std::min(shortest, timeUntilCalled(delay));
    }
    EXPECT_GE(shortest, delay);
    EXPECT_LE(shortest, closeEnough);
}

} // namespace

} // namespace corvane::contract
