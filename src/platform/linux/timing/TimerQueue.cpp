#include "platform/linux/timing/TimerQueue.h"

#include <algorithm>
#include <utility>

namespace corvane::linux {

/// What the receiver of a timer holds.
class TimerQueue::PendingCall : public platform::Timer {
  public:
    PendingCall(TimerQueue &queue, std::shared_ptr<Call> call)
        : queue_(queue),
          call_(std::move(call)) {}
    ~PendingCall() override { queue_.remove(call_); }
    PendingCall(const PendingCall &) = delete;
    PendingCall &operator=(const PendingCall &) = delete;

  private:
    TimerQueue &queue_;
    const std::shared_ptr<Call> call_;
};

std::unique_ptr<platform::Timer> TimerQueue::add(std::chrono::nanoseconds delay,
                                                 std::optional<std::chrono::nanoseconds> period,
                                                 std::function<void()> work) {
    auto call = std::make_shared<Call>(Call{clock_.now() + delay, period, std::move(work)});
    insert(call);
    setTimer();
    return std::make_unique<PendingCall>(*this, std::move(call));
}

void TimerQueue::insert(std::shared_ptr<Call> call) {
    const auto place = std::ranges::upper_bound(calls_, call->due, {}, &Call::due);
    calls_.insert(place, std::move(call));
}

void TimerQueue::remove(const std::shared_ptr<Call> &call) {
    std::erase(calls_, call);
    setTimer();
}

void TimerQueue::callAllDue() {
    const platform::Instant now = clock_.now();
    while (!calls_.empty() && calls_.front()->due <= now) {
        takeFirst(now)->work();
    }
    setTimer();
}

std::shared_ptr<TimerQueue::Call> TimerQueue::takeFirst(platform::Instant now) {
    auto call = calls_.front();
    calls_.erase(calls_.begin());
    if (const auto period = call->period) {
        // What was missed, such as while the system slept, is made up for by one call.
        const auto missed = (now - call->due) / *period;
        call->due += (missed + 1) * *period;
        insert(call);
    }
    return call;
}

void TimerQueue::setTimer() {
    if (calls_.empty()) {
        timer_.clear();
    } else {
        timer_.set(calls_.front()->due);
    }
}

} // namespace corvane::linux
