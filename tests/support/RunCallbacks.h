#pragma once

#include "services/ClickerService.h"
#include "support/TimeLimit.h"

#include <condition_variable>
#include <mutex>
#include <thread>
#include <vector>

namespace corvane::testing {

/// What a run called back.
class RunCallbacks {
  public:
    ClickerService::ClickCallback onClick() {
        return [this](std::int64_t count, Point point) {
            const std::lock_guard lock(mutex_);
            counts_.push_back(count);
            points_.push_back(point);
            thread_ = std::this_thread::get_id();
            changed_.notify_all();
        };
    }
    ClickerService::FinishCallback onFinish() {
        return [this] {
            const std::lock_guard lock(mutex_);
            countAtFinish_ = counts_.size();
            ++finishes_;
            changed_.notify_all();
        };
    }

    std::vector<std::int64_t> counts() const {
        const std::lock_guard lock(mutex_);
        return counts_;
    }
    std::vector<Point> points() const {
        const std::lock_guard lock(mutex_);
        return points_;
    }
    int finishes() const {
        const std::lock_guard lock(mutex_);
        return finishes_;
    }
    /// How many clicks came before the finish.
    std::size_t countAtFinish() const {
        const std::lock_guard lock(mutex_);
        return countAtFinish_;
    }
    std::thread::id thread() const {
        const std::lock_guard lock(mutex_);
        return thread_;
    }
    [[nodiscard]] bool awaitFinish() {
        std::unique_lock lock(mutex_);
        return changed_.wait_for(lock, testing::timeLimit, [this] { return finishes_ > 0; });
    }

  private:
    mutable std::mutex mutex_;
    std::condition_variable changed_;
    std::vector<std::int64_t> counts_;
    std::vector<Point> points_;
    int finishes_ = 0;
    std::size_t countAtFinish_ = 0;
    std::thread::id thread_;
};

} // namespace corvane::testing
