#include "Samples.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace corvane::bench {

Samples Samples::scaledBy(double factor) const {
    Samples scaled;
    for (const double value : values_) {
        scaled.add(value * factor);
    }
    return scaled;
}

double Samples::percentile(double share) const {
    const double count = std::ceil(share / 100 * static_cast<double>(values_.size()));
    const auto index = static_cast<std::ptrdiff_t>(std::max(count, 1.0)) - 1;
    std::vector<double> values = values_;
    std::ranges::nth_element(values, values.begin() + index);
    return values[static_cast<std::size_t>(index)];
}

} // namespace corvane::bench
