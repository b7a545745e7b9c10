#include "platform/linux/timing/WakeUpLatency.h"

#include <algorithm>

namespace corvane::linux {

/// Settles where every second wake-up is in time. The others are hardly later, while waiting awake
/// for them would cost processor time with each of the early ones.
void WakeUpLatency::learn(std::chrono::nanoseconds taken) {
    using namespace std::chrono_literals;
    if (taken < 0ns) {
        return; // The sleep was cut short.
    }
    if (!hasLearnt_.exchange(true)) {
        lead_ = std::min(taken, longest);
        return;
    }
    const std::chrono::nanoseconds lead = lead_.load();
    const std::chrono::nanoseconds step = step_.load();
    lead_ = std::clamp(taken > lead ? lead + step : lead - step, 0ns, longest);
    step_ = std::max<std::chrono::nanoseconds>(step * 7 / 8, 1us);
}

} // namespace corvane::linux
