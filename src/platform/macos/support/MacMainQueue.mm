#import "platform/macos/support/MacMainQueue.h"

#import "platform/macos/app/Activity.h"

#import <Foundation/Foundation.h>

#include <optional>
#include <utility>

#if !__has_feature(objc_arc)
#error "Compile this file with -fobjc-arc"
#endif

namespace corvane::macos {

namespace {

class MacTimer : public platform::Timer {
  public:
    MacTimer(std::chrono::nanoseconds interval, bool repeats, std::function<void()> work) {
        const auto shared = std::make_shared<std::function<void()>>(std::move(work));
        timer_ =
            [NSTimer scheduledTimerWithTimeInterval:std::chrono::duration<double>(interval).count()
                                            repeats:repeats
                                              block:^(NSTimer *) {
                                                // The work may destroy its own timer, and the block
                                                // too.
                                                const auto held = shared; // NOLINT(performance-*)
                                                (*held)();
                                              }];
        if (repeats) {
            // A napping program's timers come late; this one is asked for something every period.
            activity_.emplace(NSActivityUserInitiatedAllowingIdleSystemSleep, @"Repeated check");
        }
        // Beside the default mode, in which it is now: while a menu or an alert is open too.
        [NSRunLoop.mainRunLoop addTimer:timer_ forMode:NSRunLoopCommonModes];
    }
    MacTimer(const MacTimer &) = delete;
    MacTimer &operator=(const MacTimer &) = delete;
    ~MacTimer() override { [timer_ invalidate]; }

  private:
    std::optional<Activity> activity_;
    NSTimer *timer_;
};

} // namespace

MacMainQueue::MacMainQueue() {
    CFRunLoopSourceContext context{};
    context.info = this;
    context.perform = [](void *queue) { static_cast<MacMainQueue *>(queue)->performNext(); };
    source_ = CFReference(CFRunLoopSourceCreate(kCFAllocatorDefault, 0, &context));
    CFRunLoopAddSource(CFRunLoopGetMain(), source_.get(), kCFRunLoopCommonModes);
}

MacMainQueue::~MacMainQueue() { CFRunLoopSourceInvalidate(source_.get()); }

void MacMainQueue::post(std::function<void()> work) {
    {
        const std::scoped_lock lock(mutex_);
        work_.push_back(std::move(work));
    }
    wakeUp();
}

std::unique_ptr<platform::Timer> MacMainQueue::after(std::chrono::nanoseconds delay,
                                                     std::function<void()> work) {
    return std::make_unique<MacTimer>(delay, false, std::move(work));
}

std::unique_ptr<platform::Timer> MacMainQueue::every(std::chrono::nanoseconds period,
                                                     std::function<void()> work) {
    return std::make_unique<MacTimer>(period, true, std::move(work));
}

void MacMainQueue::performNext() {
    std::function<void()> next;
    {
        const std::scoped_lock lock(mutex_);
        if (work_.empty()) {
            return;
        }
        next = std::move(work_.front());
        work_.pop_front();
        if (!work_.empty()) {
            // Before the work, which may turn the run loop itself.
            wakeUp();
        }
    }
    @autoreleasepool {
        next();
    }
}

void MacMainQueue::wakeUp() {
    CFRunLoopSourceSignal(source_.get());
    CFRunLoopWakeUp(CFRunLoopGetMain());
}

} // namespace corvane::macos
