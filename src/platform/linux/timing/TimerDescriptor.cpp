#include "platform/linux/timing/TimerDescriptor.h"

#include <algorithm>
#include <chrono>
#include <ctime>

#include <sys/timerfd.h>

namespace corvane::linux {

TimerDescriptor::TimerDescriptor()
    : descriptor_(timerfd_create(CLOCK_BOOTTIME, TFD_CLOEXEC | TFD_NONBLOCK)) {}

bool TimerDescriptor::set(platform::Instant moment) const {
    // A moment of zero would clear it.
    const auto future = std::max(moment, platform::Instant(1));
    const auto whole = std::chrono::floor<std::chrono::seconds>(future);
    const itimerspec setting{
        .it_interval = {},
        .it_value = {.tv_sec = whole.count(), .tv_nsec = (future - whole).count()}};
    return timerfd_settime(descriptor_.get(), TFD_TIMER_ABSTIME, &setting, nullptr) == 0;
}

void TimerDescriptor::clear() const {
    constexpr itimerspec never{};
    timerfd_settime(descriptor_.get(), 0, &never, nullptr);
}

} // namespace corvane::linux
