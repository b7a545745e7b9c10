#include "RecorderBackEnd.h"

#include "support/Patience.h"

#include <chrono>

namespace corvane::contract {

bool RecorderBackEnd::turnUntil(const std::function<bool()> &condition) {
    using RealClock = std::chrono::steady_clock;
    const auto end = RealClock::now() + corvane::testing::patience;
    while (!condition()) {
        if (RealClock::now() > end) {
            return false;
        }
        platform_.advance(std::chrono::milliseconds(1));
        platform_.overlayWindows().completeAnimations();
    }
    return true;
}

} // namespace corvane::contract
