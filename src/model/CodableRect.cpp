#include "model/CodableRect.h"

#include "support/NumberText.h"

#include <cstdlib>

namespace corvane {

namespace {

/// False for what is not a number.
bool isWithinWholeNumbers(double value) { return value >= -0x1p63 && value < 0x1p63; }

} // namespace

bool CodableRect::hasSizeLabel() const {
    return isWithinWholeNumbers(width) && isWithinWholeNumbers(height);
}

std::string CodableRect::sizeLabel() const {
    if (!hasSizeLabel()) {
        std::abort();
    }
    return truncatedNumberText(width) + "×" + truncatedNumberText(height);
}

} // namespace corvane
