#include "platform/linux/timing/Clock.h"

#include "platform/linux/timing/SchedulerSlice.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <ctime>

#include <poll.h>
#include <sys/eventfd.h>
#include <sys/prctl.h>
#include <sys/timerfd.h>

namespace corvane::linux {

namespace {

using std::chrono::nanoseconds;
using std::chrono::seconds;

/// By default the kernel delays the end of a sleep by up to 50 µs to combine wake-ups.
void disableTimerSlack() { prctl(PR_SET_TIMERSLACK, 1UL, 0UL, 0UL, 0UL); }

/// Once for each thread that sleeps.
void requestPromptWakeUps() {
    thread_local const bool isDone = [] {
        disableTimerSlack();
        requestSchedulerSlice();
        return true;
    }();
    static_cast<void>(isDone);
}

timespec timespecOf(platform::Instant instant) {
    const auto whole = std::chrono::floor<seconds>(instant);
    return {.tv_sec = whole.count(), .tv_nsec = (instant - whole).count()};
}

void sleepUntil(platform::Instant instant) {
    const timespec deadline = timespecOf(instant);
    requestPromptWakeUps();
    while (clock_nanosleep(CLOCK_BOOTTIME, TIMER_ABSTIME, &deadline, nullptr) == EINTR) {
    }
}

/// Waits on a timer and on an event that cancels it. Where the process has no descriptors left, it
/// sleeps in short slices instead.
class DescriptorWait : public platform::CancellableWait {
  public:
    /// All given outlives the wait.
    DescriptorWait(platform::ContinuousClock &clock, WakeUpLatency &latency,
                   NextClickDeadline &nextClickDeadline)
        : clock_(clock),
          latency_(latency),
          nextClickDeadline_(nextClickDeadline),
          cancellation_(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {}

    using CancellableWait::waitUntil;
    void waitUntil(platform::Instant deadline, const std::function<void()> &justBefore) override {
        nextClickDeadline_ = deadline;
        latency_.waitUntil(
            clock_, deadline, [this](platform::Instant instant) { sleepUntil(instant); },
            justBefore, [this] { return isCancelled(); });
    }

    void cancel() override {
        isCancelled_ = true;
        eventfd_write(cancellation_.get(), 1);
    }

    bool isCancelled() const override { return isCancelled_; }

  private:
    void sleepUntil(platform::Instant instant) const {
        if (cancellation_.isOpen() && timer_.set(instant)) {
            waitForDescriptors();
        } else {
            sleepInSlices(instant);
        }
    }

    void waitForDescriptors() const {
        std::array<pollfd, 2> descriptors{
            {{.fd = timer_.get(), .events = POLLIN, .revents = 0},
             {.fd = cancellation_.get(), .events = POLLIN, .revents = 0}}};
        while (poll(descriptors.data(), descriptors.size(), -1) < 0 && errno == EINTR) {
        }
    }

    void sleepInSlices(platform::Instant deadline) const {
        constexpr auto slice = std::chrono::milliseconds(5);
        while (!isCancelled_) {
            const auto left = deadline - clock_.now();
            if (left <= left.zero()) {
                return;
            }
            clock_.sleepFor(std::min<nanoseconds>(left, slice));
        }
    }

    platform::ContinuousClock &clock_;
    WakeUpLatency &latency_;
    NextClickDeadline &nextClickDeadline_;
    const TimerDescriptor timer_;
    const posix::FileDescriptor cancellation_;
    std::atomic<bool> isCancelled_ = false;
};

} // namespace

platform::Instant Clock::now() const {
    timespec time{};
    clock_gettime(CLOCK_BOOTTIME, &time);
    return seconds(time.tv_sec) + nanoseconds(time.tv_nsec);
}

void Clock::sleepFor(nanoseconds duration) {
    const platform::Instant end = now() + duration;
    *nextClickDeadline_ = end;
    sleepLatency_.waitUntil(*this, end, sleepUntil, [] {}, [] { return false; });
}

std::unique_ptr<platform::CancellableWait> Clock::makeWait() {
    return std::make_unique<DescriptorWait>(*this, waitLatency_, *nextClickDeadline_);
}

TimerDescriptor::TimerDescriptor()
    : descriptor_(timerfd_create(CLOCK_BOOTTIME, TFD_CLOEXEC | TFD_NONBLOCK)) {}

bool TimerDescriptor::set(platform::Instant moment) const {
    // The kernel takes zero for "clear".
    const auto future = std::max(moment, platform::Instant(1));
    const itimerspec setting{.it_interval = {}, .it_value = timespecOf(future)};
    return timerfd_settime(descriptor_.get(), TFD_TIMER_ABSTIME, &setting, nullptr) == 0;
}

void TimerDescriptor::clear() const {
    constexpr itimerspec never{};
    timerfd_settime(descriptor_.get(), 0, &never, nullptr);
}

} // namespace corvane::linux
