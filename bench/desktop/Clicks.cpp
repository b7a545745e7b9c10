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

std::vector<double> Clicks::periods() const {
    std::vector<double> periods;
    for (std::size_t index = 1; index < presses.size(); ++index) {
        periods.push_back(presses[index] - presses[index - 1]);
    }
    return periods;
}

std::vector<double> Clicks::holds() const {
    std::vector<double> holds;
    for (std::size_t index = 0; index < std::min(presses.size(), releases.size()); ++index) {
        holds.push_back(releases[index] - presses[index]);
    }
    return holds;
}

double monotonicMilliseconds() {
    // The steady clock is the monotonic one.
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration<double, std::milli>(now).count();
}

} // namespace corvane::bench
