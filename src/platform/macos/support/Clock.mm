#import "platform/macos/support/Clock.h"

#import <Foundation/Foundation.h>

#include <algorithm>
#include <atomic>
#include <cstdint>
#include <mach/mach_time.h>
#include <thread>

namespace corvane::macos {

namespace {

mach_timebase_info_data_t timebase() {
    mach_timebase_info_data_t timebase{};
    mach_timebase_info(&timebase);
    return timebase;
}

class CancellableWait : public platform::CancellableWait {
  public:
    explicit CancellableWait(const Clock &clock) : clock_(clock) {}

    void waitUntil(platform::Instant deadline, const std::function<void()> &justBefore) override {
        while (!isCancelled()) {
            const auto remaining = deadline - clock_.now();
            if (remaining <= remaining.zero()) {
                justBefore();
                return;
            }
            nap(std::min<std::chrono::nanoseconds>(remaining, longestNap));
        }
    }

    void cancel() override {
        isCancelled_ = true;
        dispatch_semaphore_signal(wakeUp_);
    }

    bool isCancelled() const override { return isCancelled_; }

  private:
    /// A nap does not count the time that the machine sleeps; the clock is looked at again after
    /// each.
    static constexpr std::chrono::seconds longestNap{1};

    void nap(std::chrono::nanoseconds duration) {
        dispatch_semaphore_wait(wakeUp_, dispatch_time(DISPATCH_TIME_NOW, duration.count()));
    }

    const Clock &clock_;
    dispatch_semaphore_t wakeUp_ = dispatch_semaphore_create(0);
    std::atomic<bool> isCancelled_ = false;
};

} // namespace

platform::Instant Clock::now() const {
    static const mach_timebase_info_data_t base = timebase();
    const std::uint64_t ticks = mach_continuous_time();
    // In two parts, so that the product does not overflow after weeks.
    const std::uint64_t nanoseconds =
        ticks / base.denom * base.numer + ticks % base.denom * base.numer / base.denom;
    return platform::Instant(nanoseconds);
}

void Clock::sleepFor(std::chrono::nanoseconds duration) { std::this_thread::sleep_for(duration); }

std::unique_ptr<platform::CancellableWait> Clock::makeWait() {
    return std::make_unique<CancellableWait>(*this);
}

} // namespace corvane::macos
