#include "platform/linux/timing/Clock.h"

#include "platform/linux/timing/DescriptorWait.h"
#include "platform/linux/timing/SchedulerSlice.h"

#include <cerrno>
#include <ctime>

#include <sys/prctl.h>

namespace corvane::linux {

namespace {

using std::chrono::nanoseconds;
using std::chrono::seconds;

/// Ends the thread's sleeps at their time; by default the kernel may gather them.
void endSleepsAtTheirTime() { prctl(PR_SET_TIMERSLACK, 1UL, 0UL, 0UL, 0UL); }

void beWokenPromptly() {
    thread_local const bool isPrompt = [] {
        endSleepsAtTheirTime();
        requestSchedulerSlice();
        return true;
    }();
    static_cast<void>(isPrompt);
}

timespec timespecOf(platform::Instant instant) {
    const auto whole = std::chrono::floor<seconds>(instant);
    return {.tv_sec = whole.count(), .tv_nsec = (instant - whole).count()};
}

void sleepUntil(platform::Instant instant) {
    const timespec deadline = timespecOf(instant);
    beWokenPromptly();
    while (clock_nanosleep(CLOCK_BOOTTIME, TIMER_ABSTIME, &deadline, nullptr) == EINTR) {
    }
}

} // namespace

platform::Instant Clock::now() const {
    timespec time{};
    clock_gettime(CLOCK_BOOTTIME, &time);
    return seconds(time.tv_sec) + nanoseconds(time.tv_nsec);
}

void Clock::hold(nanoseconds duration) {
    const platform::Instant end = now() + duration;
    awaited_->set(end);
    holdLead_.waitUntil(*this, end, sleepUntil, [] {}, [] { return false; });
}

std::unique_ptr<platform::CancellableWait> Clock::makeWait() {
    return std::make_unique<DescriptorWait>(*this, waitLead_, *awaited_);
}

} // namespace corvane::linux
