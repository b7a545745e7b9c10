#pragma once

#include "platform/MainQueue.h"
#include "platform/macos/logic/WorkList.h"
#include "platform/macos/support/CFReference.h"

namespace corvane::macos {

/// The main run loop, in all its common modes: open menus and modal alerts do not hold it up.
///
/// The work waits in a list of its own, behind a run loop source. The main dispatch queue would
/// stand still while one of its blocks runs a modal alert.
class MainQueue : public platform::MainQueue {
  public:
    MainQueue();
    ~MainQueue() override;
    MainQueue(const MainQueue &) = delete;
    MainQueue &operator=(const MainQueue &) = delete;

    void post(std::function<void()> work) override;
    std::unique_ptr<platform::Timer> after(std::chrono::nanoseconds delay,
                                           std::function<void()> work) override;
    std::unique_ptr<platform::Timer> every(std::chrono::nanoseconds period,
                                           std::function<void()> work) override;

  private:
    void performNext();
    void wakeUp();

    WorkList work_;
    CFReference<CFRunLoopSourceRef> source_;
};

} // namespace corvane::macos
