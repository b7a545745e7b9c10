#include "RecorderBackEnd.h"

#include "support/TimeLimit.h"

#include <chrono>
#include <thread>
#include <utility>

namespace corvane::contract {

bool RecorderBackEnd::turnUntil(const std::function<bool()> &condition) {
    using RealClock = std::chrono::steady_clock;
    const auto end = RealClock::now() + corvane::testing::timeLimit;
    while (!condition()) {
        if (RealClock::now() > end) {
            return false;
        }
        for (const auto &event : std::exchange(events_, {})) {
            event();
        }
        platform_.advance(std::chrono::milliseconds(1));
        // The clock turns faster than the real one, but does not run away from other threads.
        std::this_thread::sleep_for(std::chrono::microseconds(200));
        platform_.overlayWindows().completeAnimations();
    }
    return true;
}

void RecorderBackEnd::click(Point point) {
    for (const auto &overlay : platform_.overlayWindows().visible()) {
        if (!overlay->window.ignoresMouseEvents && overlay->frame.contains(point)) {
            events_.emplace_back([overlay, point] { overlay->mouseDown(point); });
            events_.emplace_back([overlay, point] { overlay->mouseUp(point); });
        }
    }
}

} // namespace corvane::contract
