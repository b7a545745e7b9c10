#include "RecorderBackEnd.h"

#include "support/Patience.h"

#include <chrono>
#include <thread>

namespace corvane::contract {

bool RecorderBackEnd::turnUntil(const std::function<bool()> &condition) {
    using RealClock = std::chrono::steady_clock;
    const auto end = RealClock::now() + corvane::testing::patience;
    while (!condition()) {
        if (RealClock::now() > end) {
            return false;
        }
        platform_.advance(std::chrono::milliseconds(1));
        // The clock turns faster than the real one, but does not run away from other threads.
        std::this_thread::sleep_for(std::chrono::microseconds(200));
        platform_.overlayWindows().completeAnimations();
    }
    return true;
}

} // namespace corvane::contract
