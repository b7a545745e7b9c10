#include "platform/linux/timing/MainQueue.h"

#include <QCoreApplication>

#include <algorithm>
#include <utility>

namespace corvane::linux {

/// The timer that the caller of `after` and `every` holds.
class MainQueue::PendingCall : public platform::Timer {
  public:
    PendingCall(MainQueue &queue, std::shared_ptr<Call> call)
        : queue_(queue),
          call_(std::move(call)) {}
    ~PendingCall() override { queue_.remove(call_); }
    PendingCall(const PendingCall &) = delete;
    PendingCall &operator=(const PendingCall &) = delete;

  private:
    MainQueue &queue_;
    const std::shared_ptr<Call> call_;
};

void MainQueue::post(std::function<void()> work) {
    {
        const std::lock_guard lock(posting_);
        posted_.push_back(std::move(work));
    }
    // Outside the lock, which the main thread takes as soon as this wakes it.
    QCoreApplication::postEvent(&receiver_, new QEvent(QEvent::User)); // NOLINT: the loop owns it
}

std::function<void()> MainQueue::takePosted() {
    const std::lock_guard lock(posting_);
    std::function<void()> work = std::move(posted_.front());
    posted_.pop_front();
    return work;
}

/// One piece of work for each event, so that a nested event loop continues with the next.
void MainQueue::Receiver::customEvent(QEvent * /*event*/) { queue_.takePosted()(); }

std::unique_ptr<platform::Timer> MainQueue::after(std::chrono::nanoseconds delay,
                                                  std::function<void()> work) {
    return addCall(delay, std::nullopt, std::move(work));
}

std::unique_ptr<platform::Timer> MainQueue::every(std::chrono::nanoseconds period,
                                                  std::function<void()> work) {
    return addCall(period, period, std::move(work));
}

std::unique_ptr<platform::Timer> MainQueue::addCall(std::chrono::nanoseconds delay,
                                                    std::optional<std::chrono::nanoseconds> period,
                                                    std::function<void()> work) {
    auto call = std::make_shared<Call>(Call{clock_.now() + delay, period, std::move(work)});
    insert(call);
    setTimer();
    return std::make_unique<PendingCall>(*this, std::move(call));
}

void MainQueue::insert(std::shared_ptr<Call> call) {
    const auto place = std::ranges::upper_bound(calls_, call->due, {}, &Call::due);
    calls_.insert(place, std::move(call));
}

void MainQueue::remove(const std::shared_ptr<Call> &call) {
    std::erase(calls_, call);
    setTimer();
}

void MainQueue::callAllDue() {
    const platform::Instant now = clock_.now();
    while (!calls_.empty() && calls_.front()->due <= now) {
        takeFirst(now)->work();
    }
    setTimer();
}

std::shared_ptr<MainQueue::Call> MainQueue::takeFirst(platform::Instant now) {
    auto call = calls_.front();
    calls_.erase(calls_.begin());
    if (const auto period = call->period) {
        // One call stands for all that were missed, such as while the system slept.
        const auto missed = (now - call->due) / *period;
        call->due += (missed + 1) * *period;
        insert(call);
    }
    return call;
}

void MainQueue::setTimer() {
    if (calls_.empty()) {
        timer_.clear();
    } else {
        timer_.set(calls_.front()->due);
    }
}

} // namespace corvane::linux
