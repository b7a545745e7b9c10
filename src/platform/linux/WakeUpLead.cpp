#include "platform/linux/WakeUpLead.h"

#include <algorithm>

namespace corvane::x11 {

/// Settles where four of five are in time: waiting awake for the slowest would cost more than it
/// gains.
void WakeUpLead::learn(std::chrono::nanoseconds taken) {
    using namespace std::chrono_literals;
    if (taken < 0ns) {
        return; // The sleep was cut short.
    }
    const std::chrono::nanoseconds lead = lead_.load();
    const std::chrono::nanoseconds step = step_.load();
    lead_ = std::clamp(taken > lead ? lead + 4 * step : lead - step, 0ns, longest);
    step_ = std::max<std::chrono::nanoseconds>(step * 7 / 8, 1us);
}

} // namespace corvane::x11
