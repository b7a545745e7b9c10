#include "support/recorder/RecordingMainQueue.h"

#include "support/TimeLimit.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace corvane::testing {

class RecordingMainQueue::RecordingTimer : public platform::Timer {
  public:
    RecordingTimer(RecordingMainQueue &queue, int number) : queue_(queue), number_(number) {}
    RecordingTimer(const RecordingTimer &) = delete;
    RecordingTimer &operator=(const RecordingTimer &) = delete;
    ~RecordingTimer() override { queue_.timers_.erase(number_); }

  private:
    RecordingMainQueue &queue_;
    int number_;
};

void RecordingMainQueue::post(std::function<void()> work) {
    {
        const std::lock_guard lock(mutex_);
        work_.push_back(std::move(work));
    }
    posted_.notify_all();
}

std::unique_ptr<platform::Timer> RecordingMainQueue::after(std::chrono::nanoseconds delay,
                                                           std::function<void()> work) {
    return schedule(delay, std::chrono::nanoseconds(0), std::move(work));
}

std::unique_ptr<platform::Timer> RecordingMainQueue::every(std::chrono::nanoseconds period,
                                                           std::function<void()> work) {
    return schedule(period, period, std::move(work));
}

std::unique_ptr<platform::Timer> RecordingMainQueue::schedule(std::chrono::nanoseconds delay,
                                                              std::chrono::nanoseconds period,
                                                              std::function<void()> work) {
    mainThread_.check();
    const int number = nextTimer_++;
    timers_.emplace(number, Appointment{clock_.now() + delay, period, std::move(work)});
    return std::make_unique<RecordingTimer>(*this, number);
}

void RecordingMainQueue::turn() {
    mainThread_.check();
    std::deque<std::function<void()>> work;
    {
        const std::lock_guard lock(mutex_);
        work.swap(work_);
    }
    for (const std::function<void()> &next : work) {
        next();
    }
    fireDueTimers();
}

void RecordingMainQueue::turnUntilIdle() {
    while (!isIdle()) {
        turn();
    }
}

bool RecordingMainQueue::turnUntil(const std::function<bool()> &condition) {
    // Some conditions come true without anything being posted, so they are asked now and then.
    constexpr std::chrono::milliseconds pollPeriod{2};
    const auto deadline = std::chrono::steady_clock::now() + timeLimit;
    while (!condition()) {
        if (std::chrono::steady_clock::now() >= deadline) {
            return false;
        }
        {
            std::unique_lock lock(mutex_);
            posted_.wait_for(lock, pollPeriod, [this] { return !work_.empty(); });
        }
        turn();
    }
    return true;
}

std::size_t RecordingMainQueue::queuedCount() const {
    const std::lock_guard lock(mutex_);
    return work_.size();
}

std::optional<platform::Instant> RecordingMainQueue::nextDeadline() const {
    std::optional<platform::Instant> next;
    for (const auto &[number, appointment] : timers_) {
        next = next ? std::min(*next, appointment.deadline) : appointment.deadline;
    }
    return next;
}

void RecordingMainQueue::fireDueTimers() {
    const platform::Instant now = clock_.now();
    std::vector<std::pair<platform::Instant, int>> due;
    for (const auto &[number, appointment] : timers_) {
        if (appointment.deadline <= now) {
            due.emplace_back(appointment.deadline, number);
        }
    }
    std::ranges::sort(due);
    for (const auto &[deadline, number] : due) {
        const auto found = timers_.find(number);
        if (found == timers_.end()) {
            continue; // stopped by one that fired before it
        }
        const std::function<void()> work = found->second.work;
        if (found->second.period.count() == 0) {
            timers_.erase(found);
        } else {
            // Like a run loop: what was missed is made up for by one call.
            const auto missed = (now - deadline) / found->second.period;
            found->second.deadline += (missed + 1) * found->second.period;
        }
        work();
    }
}

bool RecordingMainQueue::isIdle() const {
    const std::optional<platform::Instant> next = nextDeadline();
    return queuedCount() == 0 && !(next && *next <= clock_.now());
}

} // namespace corvane::testing
