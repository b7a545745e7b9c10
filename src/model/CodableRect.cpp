#include "model/CodableRect.h"

#include <cstdint>
#include <cstdlib>

namespace corvane {

namespace {

std::int64_t truncated(double value) {
    // Written so that it is false for what is not a number.
    const bool isWithinRange = value >= -0x1p63 && value < 0x1p63;
    if (!isWithinRange) {
        std::abort();
    }
    return static_cast<std::int64_t>(value);
}

} // namespace

std::string CodableRect::sizeLabel() const {
    return std::to_string(truncated(width)) + "×" + std::to_string(truncated(height));
}

} // namespace corvane
