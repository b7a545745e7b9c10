#pragma once

#include "platform/MainQueue.h"
#include "platform/linux/timing/Clock.h"
#include "platform/linux/timing/ExactTimer.h"

#include <QObject>

#include <deque>
#include <memory>
#include <mutex>
#include <optional>
#include <vector>

namespace corvane::linux {

/// Qt's event loop as the main queue; its timers are exact, which QTimer is not. Made on the main
/// thread.
class MainQueue : public platform::MainQueue {
  public:
    MainQueue() = default;

    void post(std::function<void()> work) override;
    std::unique_ptr<platform::Timer> after(std::chrono::nanoseconds delay,
                                           std::function<void()> work) override;
    std::unique_ptr<platform::Timer> every(std::chrono::nanoseconds period,
                                           std::function<void()> work) override;

  private:
    /// Lives on the main thread and receives an event there for each piece of work.
    class Receiver : public QObject {
      public:
        explicit Receiver(MainQueue &queue) : queue_(queue) {}

      private:
        void customEvent(QEvent *event) override;

        MainQueue &queue_;
    };

    struct Call {
        platform::Instant due;
        std::optional<std::chrono::nanoseconds> period;
        std::function<void()> work;
    };
    class PendingCall;

    std::function<void()> takePosted();

    std::unique_ptr<platform::Timer> addCall(std::chrono::nanoseconds delay,
                                             std::optional<std::chrono::nanoseconds> period,
                                             std::function<void()> work);
    void insert(std::shared_ptr<Call> call);
    void remove(const std::shared_ptr<Call> &call);
    void callAllDue();
    /// Takes the first call; one with a period is inserted again.
    std::shared_ptr<Call> takeFirst(platform::Instant now);
    void setTimer();

    std::mutex posting_;
    std::deque<std::function<void()>> posted_;
    Receiver receiver_{*this};
    const Clock clock_{};
    /// By their time.
    std::vector<std::shared_ptr<Call>> calls_;
    ExactTimer timer_{[this] { callAllDue(); }};
};

} // namespace corvane::linux
