#include "platform/linux/timing/MainQueue.h"

#include <QCoreApplication>

#include <utility>

namespace corvane::linux {

void MainQueue::post(std::function<void()> work) {
    {
        const std::lock_guard lock(posting_);
        posted_.push_back(std::move(work));
    }
    // This may wake the main thread at once, which must not find the lock taken.
    QCoreApplication::postEvent(&receiver_, new QEvent(QEvent::User)); // NOLINT: the loop owns it
}

std::function<void()> MainQueue::takeFirst() {
    const std::lock_guard lock(posting_);
    std::function<void()> work = std::move(posted_.front());
    posted_.pop_front();
    return work;
}

/// One piece for each event, so that a nested event loop goes on with the next.
void MainQueue::Receiver::customEvent(QEvent * /*event*/) { queue_.takeFirst()(); }

std::unique_ptr<platform::Timer> MainQueue::after(std::chrono::nanoseconds delay,
                                                  std::function<void()> work) {
    return timers_.add(delay, std::nullopt, std::move(work));
}

std::unique_ptr<platform::Timer> MainQueue::every(std::chrono::nanoseconds period,
                                                  std::function<void()> work) {
    return timers_.add(period, period, std::move(work));
}

} // namespace corvane::linux
