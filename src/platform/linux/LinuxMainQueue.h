#pragma once

#include "platform/MainQueue.h"
#include "platform/linux/TimerQueue.h"

#include <QObject>

namespace corvane::x11 {

/// Qt's event loop as the main queue. Made on the main thread.
class LinuxMainQueue : public platform::MainQueue {
  public:
    void post(std::function<void()> work) override;
    std::unique_ptr<platform::Timer> after(std::chrono::nanoseconds delay,
                                           std::function<void()> work) override;
    std::unique_ptr<platform::Timer> every(std::chrono::nanoseconds period,
                                           std::function<void()> work) override;

  private:
    /// Lives on the main thread; what is posted to it runs there.
    QObject receiver_;
    TimerQueue timers_;
};

} // namespace corvane::x11
