#include "model/CorvaneConfig.h"

#include "support/Localised.h"

namespace corvane {

double clickInterval(std::int64_t clickRate, TimeUnit timeUnit) {
    return clickRate < 1 ? 1.0 : secondsPerUnit(timeUnit) / static_cast<double>(clickRate);
}

double CorvaneConfig::clickInterval() const { return corvane::clickInterval(clickRate, timeUnit); }

std::string CorvaneConfig::maxClicksLabel() const {
    return maxClicks == 0 ? localised("unlimited") : std::to_string(maxClicks) + "x";
}

} // namespace corvane
