#import "platform/macos/support/MainQueue.h"

#import "platform/macos/app/Activity.h"

#import <Foundation/Foundation.h>

#include <optional>
#include <utility>

namespace corvane::macos {

namespace {

class Timer : public platform::Timer {
  public:
    Timer(std::chrono::nanoseconds interval, bool repeats, std::function<void()> work) {
        const auto shared = std::make_shared<std::function<void()>>(std::move(work));
        timer_ = [NSTimer timerWithTimeInterval:std::chrono::duration<double>(interval).count()
                                        repeats:repeats
                                          block:^(NSTimer *) {
                                            @autoreleasepool {
                                                // The work may destroy its own timer and this
                                                // block.
                                                const auto held = shared; // NOLINT(performance-*)
                                                (*held)();
                                            }
                                          }];
        if (repeats) {
            // App Nap delays the timers of a program in the background.
            activity_.emplace(NSActivityUserInitiatedAllowingIdleSystemSleep, @"Repeated check");
        }
        // While a menu or an alert is open too.
        [NSRunLoop.mainRunLoop addTimer:timer_ forMode:NSRunLoopCommonModes];
    }
    Timer(const Timer &) = delete;
    Timer &operator=(const Timer &) = delete;
    ~Timer() override { [timer_ invalidate]; }

  private:
    std::optional<Activity> activity_;
    NSTimer *timer_;
};

} // namespace

MainQueue::MainQueue() {
    CFRunLoopSourceContext context{};
    context.info = this;
    context.perform = [](void *queue) {
        @autoreleasepool {
            static_cast<MainQueue *>(queue)->performNext();
        }
    };
    source_ = CFReference(CFRunLoopSourceCreate(kCFAllocatorDefault, 0, &context));
    CFRunLoopAddSource(CFRunLoopGetMain(), source_.get(), kCFRunLoopCommonModes);
}

MainQueue::~MainQueue() { CFRunLoopSourceInvalidate(source_.get()); }

void MainQueue::post(std::function<void()> work) {
    work_.add(std::move(work));
    wakeUp();
}

std::unique_ptr<platform::Timer> MainQueue::after(std::chrono::nanoseconds delay,
                                                  std::function<void()> work) {
    return std::make_unique<Timer>(delay, false, std::move(work));
}

std::unique_ptr<platform::Timer> MainQueue::every(std::chrono::nanoseconds period,
                                                  std::function<void()> work) {
    return std::make_unique<Timer>(period, true, std::move(work));
}

void MainQueue::performNext() {
    const auto next = work_.takeNext();
    if (!next) {
        return;
    }
    if (next->isFollowed) {
        wakeUp();
    }
    next->work();
}

void MainQueue::wakeUp() {
    CFRunLoopSourceSignal(source_.get());
    CFRunLoopWakeUp(CFRunLoopGetMain());
}

} // namespace corvane::macos
