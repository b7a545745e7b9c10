#include "platform/linux/LinuxMainQueue.h"

#include <QMetaObject>
#include <QTimer>

#include <utility>

namespace corvane::x11 {

namespace {

enum class Repetition { once, forever };

class QtTimer : public platform::Timer {
  public:
    QtTimer(std::chrono::nanoseconds interval, Repetition repetition, std::function<void()> work) {
        timer_.setTimerType(Qt::PreciseTimer);
        timer_.setSingleShot(repetition == Repetition::once);
        QObject::connect(&timer_, &QTimer::timeout, std::move(work));
        timer_.start(std::chrono::ceil<std::chrono::milliseconds>(interval));
    }

  private:
    QTimer timer_;
};

} // namespace

void LinuxMainQueue::post(std::function<void()> work) {
    QMetaObject::invokeMethod(&receiver_, std::move(work), Qt::QueuedConnection);
}

std::unique_ptr<platform::Timer> LinuxMainQueue::after(std::chrono::nanoseconds delay,
                                                       std::function<void()> work) {
    return std::make_unique<QtTimer>(delay, Repetition::once, std::move(work));
}

std::unique_ptr<platform::Timer> LinuxMainQueue::every(std::chrono::nanoseconds period,
                                                       std::function<void()> work) {
    return std::make_unique<QtTimer>(period, Repetition::forever, std::move(work));
}

} // namespace corvane::x11
