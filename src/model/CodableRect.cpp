#include "model/CodableRect.h"

#include "support/NumberText.h"

#include <cmath>
#include <cstdlib>

namespace corvane {

std::string CodableRect::sizeLabel() const {
    if (!std::isfinite(width) || !std::isfinite(height)) {
        std::abort();
    }
    return truncatedNumberText(width) + "×" + truncatedNumberText(height);
}

} // namespace corvane
