#include "platform/linux/LinuxMainQueue.h"

#include <QMetaObject>

#include <utility>

namespace corvane::x11 {

void LinuxMainQueue::post(std::function<void()> work) {
    QMetaObject::invokeMethod(&receiver_, std::move(work), Qt::QueuedConnection);
}

std::unique_ptr<platform::Timer> LinuxMainQueue::after(std::chrono::nanoseconds delay,
                                                       std::function<void()> work) {
    return timers_.add(delay, std::nullopt, std::move(work));
}

std::unique_ptr<platform::Timer> LinuxMainQueue::every(std::chrono::nanoseconds period,
                                                       std::function<void()> work) {
    return timers_.add(period, period, std::move(work));
}

} // namespace corvane::x11
