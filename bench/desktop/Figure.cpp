#include "Figure.h"

#include "NumberColumn.h"

#include <utility>

namespace corvane::bench {

namespace {

void addBound(std::string &text, const std::string &bound, std::optional<double> value) {
    if (value) {
        text += (text.empty() ? "" : ", ") + bound + " " + shortText(*value);
    }
}

} // namespace

std::string Target::text() const {
    std::string text;
    addBound(text, "≤", medianAtMost);
    addBound(text, "≥", medianAtLeast);
    addBound(text, "p99 ≤", p99AtMost);
    addBound(text, "ratio ≤", ratioAtMost);
    return text;
}

Figure Figure::of(std::string name, std::string unit, const Target &target,
                  const Samples &samples) {
    return {.name = std::move(name),
            .unit = std::move(unit),
            .target = target,
            .median = samples.median(),
            .p99 = samples.percentile(target.medianAtLeast ? 1 : 99)};
}

void Figure::setFloor(const Reference &floor) {
    reference = floor;
    parts = {{.name = floor.name, .amount = floor.median}};
}

std::optional<double> Figure::ratio() const {
    return reference ? std::optional(median / reference->median) : std::nullopt;
}

bool Figure::isMet() const {
    const auto exceeds = [](double value, std::optional<double> bound) {
        return bound && value > *bound;
    };
    const auto fallsShort = [](double value, std::optional<double> bound) {
        return bound && value < *bound;
    };
    return !exceeds(median, target.medianAtMost) && !exceeds(p99, target.p99AtMost) &&
           !fallsShort(median, target.medianAtLeast) &&
           !(target.ratioAtMost && exceeds(ratio().value_or(0), target.ratioAtMost));
}

} // namespace corvane::bench
