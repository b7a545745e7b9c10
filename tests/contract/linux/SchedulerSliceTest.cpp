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

/// The scheduling of the calling thread, read from the kernel.
struct Slice {
    int policy = -1;
    int nice = -1;
    std::uint64_t nanoseconds = 0;
};

Slice readSlice() {
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

TEST(SchedulerSliceTest, ChangesTheSliceOnly) {
    onAThreadOfItsOwn([] {
        constexpr int leastPriority = 19;
        ASSERT_EQ(setpriority(PRIO_PROCESS, 0, leastPriority), 0);
        const Slice before = readSlice();
        linux::requestSchedulerSlice();
        const Slice after = readSlice();
        EXPECT_EQ(after.policy, SCHED_OTHER);
        EXPECT_EQ(after.nice, leastPriority);
        // Kernels before 6.12 report no slice.
        if (before.nanoseconds != 0) {
            EXPECT_LT(after.nanoseconds, before.nanoseconds);
        }
    });
}

TEST(SchedulerSliceTest, OtherThreadsAreAsUsual) {
    onAThreadOfItsOwn([] {
        const Slice usual = readSlice();
        linux::requestSchedulerSlice();
        onAThreadOfItsOwn([&usual] { EXPECT_EQ(readSlice().nanoseconds, usual.nanoseconds); });
    });
}

TEST(SchedulerSliceTest, LeavesAnotherPolicyAlone) {
    onAThreadOfItsOwn([] {
        const sched_param parameters{};
        ASSERT_EQ(sched_setscheduler(0, SCHED_IDLE, &parameters), 0);
        linux::requestSchedulerSlice();
        EXPECT_EQ(readSlice().policy, SCHED_IDLE);
    });
}

} // namespace

} // namespace corvane::contract
