#include "platform/linux/timing/SchedulerSlice.h"

#include <cstdint>
#include <sched.h>

#include <sys/resource.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace corvane::linux {

namespace {

constexpr std::uint64_t resetOnFork = 1;
/// Nanoseconds; the shortest that the kernel grants.
constexpr std::uint64_t shortestSlice = 100'000;

/// The kernel's struct sched_attr, which not every C library declares.
struct SchedulingAttributes {
    std::uint32_t size = sizeof(SchedulingAttributes);
    std::uint32_t policy = SCHED_OTHER;
    std::uint64_t flags = resetOnFork;
    std::int32_t nice = 0;
    std::uint32_t priority = 0;
    /// The slice under SCHED_OTHER.
    std::uint64_t runtime = shortestSlice;
    std::uint64_t deadline = 0;
    std::uint64_t period = 0;
};

} // namespace

void requestSchedulerSlice() {
    if (sched_getscheduler(0) != SCHED_OTHER) {
        return; // Chosen by whoever started the program.
    }
    SchedulingAttributes attributes;
    attributes.nice = getpriority(PRIO_PROCESS, 0);
    syscall(SYS_sched_setattr, 0, &attributes, 0);
}

} // namespace corvane::linux
