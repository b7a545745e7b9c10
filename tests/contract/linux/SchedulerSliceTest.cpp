#include "platform/linux/timing/SchedulerSlice.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <sched.h>
#include <thread>

#include <sys/resource.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace corvane::contract {

namespace {

/// What the kernel says of the calling thread.
struct Turns {
    int policy = -1;
    int nice = -1;
    std::uint64_t nanoseconds = 0;
};

Turns readTurns() {
    // Size and policy, flags, nice value and priority, runtime, deadline, period.
    std::array<std::uint64_t, 6> attributes{};
    EXPECT_EQ(syscall(SYS_sched_getattr, 0, attributes.data(), sizeof(attributes), 0), 0);
    return {.policy = sched_getscheduler(0) & ~SCHED_RESET_ON_FORK,
            .nice = getpriority(PRIO_PROCESS, 0),
            .nanoseconds = attributes[3]};
}

template <typename Body>
void onAThreadOfItsOwn(Body body) {
    std::thread(body).join();
}

TEST(ShortTurnsTest, ChangesTheTurnsOnly) {
    onAThreadOfItsOwn([] {
        constexpr int leastPriority = 19;
        ASSERT_EQ(setpriority(PRIO_PROCESS, 0, leastPriority), 0);
        const Turns before = readTurns();
        linux::requestSchedulerSlice();
        const Turns after = readTurns();
        EXPECT_EQ(after.policy, SCHED_OTHER);
        EXPECT_EQ(after.nice, leastPriority);
        // A kernel that does not know them says nothing of turns.
        if (before.nanoseconds != 0) {
            EXPECT_LT(after.nanoseconds, before.nanoseconds);
        }
    });
}

TEST(ShortTurnsTest, OtherThreadsAreAsUsual) {
    onAThreadOfItsOwn([] {
        const Turns usual = readTurns();
        linux::requestSchedulerSlice();
        onAThreadOfItsOwn([&usual] { EXPECT_EQ(readTurns().nanoseconds, usual.nanoseconds); });
    });
}

TEST(ShortTurnsTest, LeavesAnotherPolicyAlone) {
    onAThreadOfItsOwn([] {
        const sched_param parameters{};
        ASSERT_EQ(sched_setscheduler(0, SCHED_IDLE, &parameters), 0);
        linux::requestSchedulerSlice();
        EXPECT_EQ(readTurns().policy, SCHED_IDLE);
    });
}

} // namespace

} // namespace corvane::contract
