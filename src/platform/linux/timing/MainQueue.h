#pragma once

#include "platform/MainQueue.h"
#include "platform/linux/timing/TimerQueue.h"

#include <QObject>

#include <deque>
#include <mutex>

namespace corvane::linux {

/// Qt's event loop as the main queue. Made on the main thread.
class MainQueue : public platform::MainQueue {
  public:
    MainQueue() : receiver_(*this) {}

    void post(std::function<void()> work) override;
    std::unique_ptr<platform::Timer> after(std::chrono::nanoseconds delay,
                                           std::function<void()> work) override;
    std::unique_ptr<platform::Timer> every(std::chrono::nanoseconds period,
                                           std::function<void()> work) override;

  private:
    /// Lives on the main thread, which brings it an event for each piece of work.
    class Receiver : public QObject {
      public:
        explicit Receiver(MainQueue &queue) : queue_(queue) {}

      private:
        void customEvent(QEvent *event) override;

        MainQueue &queue_;
    };

    std::function<void()> takeFirst();

    std::mutex posting_;
    std::deque<std::function<void()>> posted_;
    Receiver receiver_;
    TimerQueue timers_;
};

} // namespace corvane::linux
