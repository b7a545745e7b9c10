#include "support/recorder/HandTurnedClock.h"

#include "support/TimeLimit.h"

#include <algorithm>

namespace corvane::testing {

/// All state is guarded by the clock's mutex.
class HandTurnedClock::Wait : public platform::CancellableWait {
  public:
    explicit Wait(HandTurnedClock &clock) : clock_(clock) {}

    void waitUntil(platform::Instant deadline, const std::function<void()> &justBefore) override {
        std::unique_lock lock(clock_.mutex_);
        if (isCancelled_) {
            return;
        }
        if (deadline > clock_.now_) {
            clock_.block(lock, {deadline, this, justBefore});
        } else {
            lock.unlock();
            justBefore();
        }
    }

    void cancel() override {
        const std::lock_guard lock(clock_.mutex_);
        isCancelled_ = true;
        clock_.hasCancelledWait_ = true;
        clock_.release([this](const Sleeper &sleeper) { return sleeper.wait == this; });
    }

    bool isCancelled() const override {
        const std::lock_guard lock(clock_.mutex_);
        return isCancelled_;
    }

  private:
    HandTurnedClock &clock_;
    bool isCancelled_ = false;
};

platform::Instant HandTurnedClock::now() const {
    const std::lock_guard lock(mutex_);
    return now_;
}

void HandTurnedClock::sleepFor(Duration duration) {
    std::unique_lock lock(mutex_);
    sleeps_.push_back(duration);
    const platform::Instant deadline = now_ + duration;
    if (sleepsBlock_) {
        block(lock, {deadline, nullptr, nullptr});
    } else {
        turnTo(lock, deadline);
    }
}

std::unique_ptr<platform::CancellableWait> HandTurnedClock::makeWait() {
    return std::make_unique<Wait>(*this);
}

void HandTurnedClock::advance(Duration duration) { advanceTo(now() + duration); }

void HandTurnedClock::advanceTo(platform::Instant moment) {
    std::unique_lock lock(mutex_);
    turnTo(lock, moment);
}

/// Stops just before the first deadline on the way, until the threads that wait for one of those
/// have prepared for it.
void HandTurnedClock::turnTo(std::unique_lock<std::mutex> &lock, platform::Instant moment) {
    constexpr Duration justBefore = std::chrono::microseconds(50);
    for (Sleeper &sleeper : sleepers_) {
        sleeper.isDue = sleeper.isDue || sleeper.deadline <= moment;
    }
    const auto isPreparing = [](const Sleeper &sleeper) {
        return sleeper.isDue && !sleeper.isReleased && sleeper.justBefore;
    };
    if (const auto first = std::ranges::min_element(sleepers_, {}, &Sleeper::deadline);
        first != sleepers_.end() && first->isDue) {
        now_ = std::max(now_, first->deadline - justBefore);
    }
    changed_.notify_all();
    changed_.wait(lock, [&] { return std::ranges::none_of(sleepers_, isPreparing); });
    now_ = std::max(now_, moment);
    release([this](const Sleeper &sleeper) { return sleeper.deadline <= now_; });
}

void HandTurnedClock::setSleepsBlock(bool sleepsBlock) {
    const std::lock_guard lock(mutex_);
    sleepsBlock_ = sleepsBlock;
    if (!sleepsBlock) {
        release([](const Sleeper &sleeper) { return sleeper.wait == nullptr; });
    }
}

bool HandTurnedClock::awaitBlocked(std::size_t threads) const {
    std::unique_lock lock(mutex_);
    return changed_.wait_for(lock, timeLimit, [&] { return countBlocked() >= threads; });
}

bool HandTurnedClock::awaitCancellation() const {
    std::unique_lock lock(mutex_);
    return changed_.wait_for(lock, timeLimit, [this] { return hasCancelledWait_; });
}

std::size_t HandTurnedClock::blockedCount() const {
    const std::lock_guard lock(mutex_);
    return countBlocked();
}

std::vector<platform::Instant> HandTurnedClock::deadlines() const {
    const std::lock_guard lock(mutex_);
    std::vector<platform::Instant> result;
    for (const Sleeper &sleeper : sleepers_) {
        if (!sleeper.isReleased) {
            result.push_back(sleeper.deadline);
        }
    }
    return result;
}

std::vector<HandTurnedClock::Duration> HandTurnedClock::sleeps() const {
    const std::lock_guard lock(mutex_);
    return sleeps_;
}

void HandTurnedClock::block(std::unique_lock<std::mutex> &lock, const Sleeper &blocked) {
    const auto sleeper = sleepers_.insert(sleepers_.end(), blocked);
    changed_.notify_all();
    changed_.wait(lock, [&] { return sleeper->isDue || sleeper->isReleased; });
    if (sleeper->justBefore && !sleeper->isReleased) {
        lock.unlock();
        sleeper->justBefore();
        lock.lock();
        sleeper->justBefore = nullptr;
        changed_.notify_all();
    }
    changed_.wait(lock, [&] { return sleeper->isReleased; });
    sleepers_.erase(sleeper);
}

template <typename Condition>
void HandTurnedClock::release(Condition condition) {
    for (Sleeper &sleeper : sleepers_) {
        sleeper.isReleased = sleeper.isReleased || condition(sleeper);
    }
    changed_.notify_all();
}

std::size_t HandTurnedClock::countBlocked() const {
    return static_cast<std::size_t>(
        std::count_if(sleepers_.begin(), sleepers_.end(),
                      [](const Sleeper &sleeper) { return !sleeper.isReleased; }));
}

} // namespace corvane::testing
