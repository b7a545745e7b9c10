#include "platform/linux/WakeUpLead.h"

#include <algorithm>

namespace corvane::x11 {

/// Settles where four of five are in time: waiting awake for the slowest would cost more than it
/// gains.
void WakeUpLead::learn(std::chrono::nanoseconds lateness) {
    using namespace std::chrono_literals;
    if (lateness < 0ns) {
        return; // The sleep was cut short.
    }
    const std::chrono::nanoseconds lead = lead_.load();
    lead_ = std::clamp(lateness > lead ? lead + 4us : lead - 1us, 0ns, longest);
}

} // namespace corvane::x11
