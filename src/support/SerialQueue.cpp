#include "support/SerialQueue.h"

#include <future>
#include <utility>

namespace corvane {

SerialQueue::SerialQueue() : thread_([this] { run(); }) {}

SerialQueue::~SerialQueue() {
    {
        const std::lock_guard lock(mutex_);
        isEnding_ = true;
    }
    wakeUp_.notify_one();
    thread_.join();
}

void SerialQueue::post(std::function<void()> work) {
    {
        const std::lock_guard lock(mutex_);
        work_.push_back(std::move(work));
    }
    wakeUp_.notify_one();
}

void SerialQueue::drain() {
    std::promise<void> reached;
    post([&reached] { reached.set_value(); });
    reached.get_future().wait();
}

void SerialQueue::run() {
    std::unique_lock lock(mutex_);
    while (true) {
        wakeUp_.wait(lock, [this] { return isEnding_ || !work_.empty(); });
        if (work_.empty()) {
            return;
        }
        const std::function<void()> next = std::move(work_.front());
        work_.pop_front();
        lock.unlock();
        next();
        lock.lock();
    }
}

} // namespace corvane
