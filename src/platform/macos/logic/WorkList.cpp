#include "platform/macos/logic/WorkList.h"

#include <utility>

namespace corvane::macos {

void WorkList::add(std::function<void()> work) {
    const std::scoped_lock lock(mutex_);
    work_.push_back(std::move(work));
}

std::optional<WorkList::Next> WorkList::takeNext() {
    const std::scoped_lock lock(mutex_);
    if (work_.empty()) {
        return std::nullopt;
    }
    Next next{.work = std::move(work_.front())};
    work_.pop_front();
    next.isFollowed = !work_.empty();
    return next;
}

} // namespace corvane::macos
