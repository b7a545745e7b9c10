#pragma once

#include "Samples.h"

#include <optional>
#include <string>
#include <vector>

namespace corvane::bench {

/// The bounds a figure is to keep; an absent one is not asked for.
struct Target {
    std::optional<double> medianAtMost{};
    std::optional<double> medianAtLeast{};
    std::optional<double> p99AtMost{};
    /// The median against the reference's.
    std::optional<double> ratioAtMost{};

    /// Such as "≤ 0.12, p99 ≤ 0.35".
    std::string text() const;
};

/// What does the same work in the same run, such as a bare loop or another program. The machine's
/// speed cancels out in the ratio to it.
struct Reference {
    std::string name;
    double median = 0;
};

/// A part of a figure, in its unit.
struct Part {
    std::string name;
    double amount = 0;
};

/// One line of the table.
struct Figure {
    std::string name;
    std::string unit;
    Target target;
    double median = 0;
    /// Of a figure that should be large, what 99 of 100 values reach.
    double p99 = 0;
    std::optional<Reference> reference{};
    /// What the median consists of, as far as it is known.
    std::vector<Part> parts{};

    static Figure of(std::string name, std::string unit, const Target &target,
                     const Samples &samples);

    /// Sets a reference whose work is part of what this figure measures.
    void setFloor(const Reference &floor);

    std::optional<double> ratio() const;
    bool isMet() const;
};

} // namespace corvane::bench
