#pragma once

#include <deque>
#include <functional>
#include <mutex>
#include <optional>

namespace corvane::macos {

/// Work in the order it was added, to be done one piece an event-loop iteration. Any thread.
class WorkList {
  public:
    void add(std::function<void()> work);

    struct Next {
        std::function<void()> work;
        /// The event loop has to be woken again before this piece runs, which may run the event
        /// loop itself.
        bool isFollowed = false;
    };

    std::optional<Next> takeNext();

  private:
    std::mutex mutex_;
    std::deque<std::function<void()>> work_;
};

} // namespace corvane::macos
