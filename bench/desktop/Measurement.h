#pragma once

#include "Figure.h"

#include <span>
#include <string_view>
#include <vector>

namespace corvane::bench {

/// How much is measured.
enum class Extent { whole, quick };

/// Something that can be measured by itself.
struct Measurement {
    /// As in `bench/run --only NAME`.
    std::string_view name;
    std::vector<Figure> (*measure)(Extent extent);
};

/// All of them, in the order of the table.
std::span<const Measurement> measurements();

std::vector<Figure> measurePeriod(Extent extent);
std::vector<Figure> measureHighestRate(Extent extent);
std::vector<Figure> measureEngine(Extent extent);
std::vector<Figure> measureClickCost(Extent extent);
std::vector<Figure> measureHotKey(Extent extent);
std::vector<Figure> measureStop(Extent extent);
std::vector<Figure> measureTracking(Extent extent);
std::vector<Figure> measureIdle(Extent extent);
std::vector<Figure> measureStart(Extent extent);
std::vector<Figure> measureInstructions(Extent extent);
std::vector<Figure> measureInProcess(Extent extent);
std::vector<Figure> measureBinary(Extent extent);

} // namespace corvane::bench
