#include "NumberColumn.h"

#include <cmath>
#include <iomanip>
#include <sstream>

namespace corvane::bench {

std::string measuredText(double value) {
    constexpr double large = 20;
    std::ostringstream text;
    text << std::fixed << std::setprecision(std::abs(value) < large ? 3 : 1) << value;
    return text.str();
}

std::string shortText(double value) {
    std::ostringstream text;
    text << value;
    return text.str();
}

} // namespace corvane::bench
