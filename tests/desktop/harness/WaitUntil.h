#pragma once

#include <chrono>
#include <thread>

namespace corvane::desktop {

/// How long a test waits for what it expects to happen; generous, for a loaded machine.
inline constexpr std::chrono::seconds timeLimit{30};

/// Checks the condition until it holds; false when `limit` passes first.
template <typename Condition>
bool waitUntil(Condition condition, std::chrono::milliseconds limit = timeLimit) {
    constexpr std::chrono::milliseconds pause{5};
    const auto deadline = std::chrono::steady_clock::now() + limit;
    while (!condition()) {
        if (std::chrono::steady_clock::now() >= deadline) {
            return false;
        }
        std::this_thread::sleep_for(pause);
    }
    return true;
}

} // namespace corvane::desktop
