#include "model/WindowAnchor.h"

#include "platform/Applications.h"

namespace corvane {

std::string WindowAnchor::appName(platform::Applications &applications) const {
    return applications.displayName(bundleID).value_or(bundleID);
}

} // namespace corvane
