#include "platform/linux/timing/ExactTimer.h"

#include <utility>

namespace corvane::linux {

ExactTimer::ExactTimer(std::function<void()> fire)
    : fire_(std::move(fire)),
      readable_(descriptor_.get(), QSocketNotifier::Read) {
    QObject::connect(&readable_, &QSocketNotifier::activated, [this] { elapse(); });
}

bool ExactTimer::set(platform::Instant moment) {
    if (moment != moment_) {
        moment_ = descriptor_.set(moment) ? std::optional(moment) : std::nullopt;
    }
    return moment_.has_value();
}

void ExactTimer::clear() {
    if (moment_) {
        moment_.reset();
        descriptor_.clear();
    }
}

/// Cleared afterwards only: what is called may keep the event loop turning, and then has to be
/// called from there, and most of it sets the next moment itself.
void ExactTimer::elapse() {
    const auto elapsed = moment_;
    fire_();
    if (moment_ == elapsed) {
        clear();
    }
}

} // namespace corvane::linux
