#pragma once

#include <chrono>

namespace corvane::testing {

/// How long a test waits, in real time, for something that is sure to happen when the code is
/// right. Long, because a busy machine may be slow; only a failing test ever waits that long.
inline constexpr std::chrono::seconds timeLimit{60};

} // namespace corvane::testing
