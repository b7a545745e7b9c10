#pragma once

#include "Samples.h"

#include <optional>
#include <string>

namespace corvane::bench {

/// The bounds a figure is to keep; an absent one is not asked for.
struct Target {
    std::optional<double> medianAtMost{};
    std::optional<double> medianAtLeast{};
    std::optional<double> p99AtMost{};
    /// The median against the peer's.
    std::optional<double> ratioAtMost{};

    /// Such as "≤ 0.12, p99 ≤ 0.35".
    std::string text() const;
};

/// One line of the table.
struct Figure {
    std::string name;
    std::string unit;
    Target target;
    double median = 0;
    /// Of a figure that should be large, what 99 of 100 values reach.
    double p99 = 0;
    /// The same figure of the peer, where one can do the same work.
    std::optional<double> peerMedian{};

    static Figure of(std::string name, std::string unit, const Target &target,
                     const Samples &samples);

    std::optional<double> ratio() const;
    bool isMet() const;
};

} // namespace corvane::bench
