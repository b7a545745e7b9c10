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

/// Clears the descriptor only afterwards: `fire_` mostly sets the next moment, which saves a system
/// call, and where it runs a nested event loop the timer has to fire there too.
void ExactTimer::elapse() {
    const auto elapsed = moment_;
    fire_();
    if (moment_ == elapsed) {
        clear();
    }
}

} // namespace corvane::linux
