#include "model/CodableRect.h"

#include <cstdint>
#include <cstdlib>

namespace corvane {

namespace {

/// False for what is not a number.
bool isWithinWholeNumbers(double value) { return value >= -0x1p63 && value < 0x1p63; }

std::string truncatedText(double value) { return std::to_string(static_cast<std::int64_t>(value)); }

} // namespace

bool CodableRect::hasSizeLabel() const {
    return isWithinWholeNumbers(width) && isWithinWholeNumbers(height);
}

std::string CodableRect::sizeLabel() const {
    if (!hasSizeLabel()) {
        std::abort();
    }
    return truncatedText(width) + "×" + truncatedText(height);
}

} // namespace corvane
