#pragma once

#include "Samples.h"
#include "harness/actors/ClickClient.h"

#include <cstdint>
#include <vector>

namespace corvane::bench {

inline constexpr double millisecondsPerSecond = 1e3;
/// For which Corvane holds the button, in milliseconds.
inline constexpr double holdTime = 10;

/// The clicks in a series of events, in milliseconds of the monotonic clock as the other program
/// saw them.
struct Clicks {
    std::vector<double> presses;
    std::vector<double> releases;

    explicit Clicks(const std::vector<desktop::ButtonEvent> &events);

    /// From each press to the next, beyond the time that was asked for.
    Samples periodsBeyond(double expected) const;
    /// From each press to its release.
    Samples holds() const;
};

/// Now, on the clock of `Clicks`.
double monotonicMilliseconds();

} // namespace corvane::bench
