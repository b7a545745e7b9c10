#pragma once

#include "presentation/Drawing.h"

#include <chrono>
#include <string>

namespace corvane {

enum class TimingFunction { linear, easeOut };

/// One shape that changes its path and opacity together. After the end it keeps its last state.
struct Animation {
    /// The name under which a running animation of the same window is replaced.
    std::string key;
    /// Colours and line width of the moving shape; its path is the starting path.
    Shape shape;
    Path endPath;
    double startOpacity = 1;
    double endOpacity = 0;
    std::chrono::milliseconds duration{0};
    TimingFunction timing = TimingFunction::linear;

    bool operator==(const Animation &) const = default;
};

} // namespace corvane
