#include "presentation/View.h"

#include <algorithm>
#include <limits>

namespace corvane {

std::optional<std::int64_t> Stepper::incremented() const {
    const std::int64_t room = std::numeric_limits<std::int64_t>::max() - step;
    const std::int64_t next = std::clamp(value > room ? highest : value + step, lowest, highest);
    return next > value ? std::optional(next) : std::nullopt;
}

std::optional<std::int64_t> Stepper::decremented() const {
    const std::int64_t room = std::numeric_limits<std::int64_t>::min() + step;
    const std::int64_t next = std::clamp(value < room ? lowest : value - step, lowest, highest);
    return next < value ? std::optional(next) : std::nullopt;
}

} // namespace corvane
