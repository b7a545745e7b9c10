#include "Clicks.h"

#include <algorithm>
#include <chrono>
#include <cstddef>

namespace corvane::bench {

Clicks::Clicks(const std::vector<desktop::ButtonEvent> &events) {
    constexpr double nanosecondsPerMillisecond = 1e6;
    for (const desktop::ButtonEvent &event : events) {
        auto &times = event.isPress ? presses : releases;
        times.push_back(static_cast<double>(event.nanoseconds) / nanosecondsPerMillisecond);
    }
}

Samples Clicks::periodsBeyond(double expected) const {
    Samples periods;
    for (std::size_t index = 1; index < presses.size(); ++index) {
        periods.add(presses[index] - presses[index - 1] - expected);
    }
    return periods;
}

Samples Clicks::holds() const {
    Samples holds;
    for (std::size_t index = 0; index < std::min(presses.size(), releases.size()); ++index) {
        holds.add(releases[index] - presses[index]);
    }
    return holds;
}

double monotonicMilliseconds() {
    // The steady clock is the monotonic one.
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration<double, std::milli>(now).count();
}

} // namespace corvane::bench
