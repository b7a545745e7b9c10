#include "model/Profile.h"

#include <utility>

namespace corvane {

Profile Profile::fromConfig(std::string name, const CorvaneConfig &config) {
    return {Uuid::random(), std::move(name), config};
}

std::string Profile::summary(platform::Applications &applications) const {
    static constexpr const char *separator = " · ";
    std::string text = displayName(config.clickMode) + separator +
                       std::to_string(config.clickRate) + "/" +
                       std::string(storedValue(config.timeUnit));
    if (config.windowAnchor) {
        text += separator + ("(" + config.windowAnchor->appName(applications) + ")");
    }
    return text;
}

} // namespace corvane
