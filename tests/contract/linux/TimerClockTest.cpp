#include "platform/linux/timing/Clock.h"

#include <gtest/gtest.h>

#include <thread>
#include <vector>

#include <fcntl.h>
#include <sys/resource.h>
#include <unistd.h>

namespace corvane::contract {

namespace {

using std::chrono::hours;
using std::chrono::milliseconds;
using std::chrono::seconds;

/// Leaves the process without a descriptor to open.
class NoDescriptors {
  public:
    NoDescriptors() {
        getrlimit(RLIMIT_NOFILE, &before_);
        rlimit none = before_;
        none.rlim_cur = 0;
        setrlimit(RLIMIT_NOFILE, &none);
    }
    ~NoDescriptors() { setrlimit(RLIMIT_NOFILE, &before_); }
    NoDescriptors(const NoDescriptors &) = delete;
    NoDescriptors &operator=(const NoDescriptors &) = delete;

  private:
    rlimit before_{};
};

std::unique_ptr<platform::CancellableWait>
waitWithoutDescriptors(platform::ContinuousClock &clock) {
    const NoDescriptors none;
    EXPECT_EQ(dup(STDERR_FILENO), -1);
    return clock.makeWait();
}

TEST(TimerClockTest, WithoutDescriptorsAWaitStillLastsUntilItsDeadline) {
    linux::Clock clock;
    const auto wait = waitWithoutDescriptors(clock);
    const auto deadline = clock.now() + milliseconds(30);
    wait->waitUntil(deadline);
    EXPECT_GE(clock.now(), deadline);
    EXPECT_LT(clock.now(), deadline + seconds(20));
}

TEST(TimerClockTest, WithoutDescriptorsAWaitCanStillBeCancelled) {
    linux::Clock clock;
    const auto wait = waitWithoutDescriptors(clock);
    std::thread waiter([&] { wait->waitUntil(clock.now() + hours(1)); });
    wait->cancel();
    waiter.join();
    EXPECT_TRUE(wait->isCancelled());
}

} // namespace

} // namespace corvane::contract
