#include "platform/linux/timing/WakeUpLatency.h"

#include <algorithm>

namespace corvane::linux {

/// The first wait gives an estimate; each later one moves it by a step that shrinks to 1 µs. It
/// settles at the median, where every second wake-up is in time: the others are hardly later, while
/// a longer latency would cost active waiting with each of the early ones.
void WakeUpLatency::learn(std::chrono::nanoseconds taken) {
    using namespace std::chrono_literals;
    if (taken < 0ns) {
        return; // The sleep was cut short.
    }
    if (!hasLearnt_.exchange(true)) {
        latency_ = std::min(taken, longest);
        return;
    }
    const std::chrono::nanoseconds latency = latency_.load();
    const std::chrono::nanoseconds step = step_.load();
    latency_ = std::clamp(taken > latency ? latency + step : latency - step, 0ns, longest);
    step_ = std::max<std::chrono::nanoseconds>(step * 7 / 8, 1us);
}

} // namespace corvane::linux
