#pragma once

#include "model/CorvaneConfig.h"
#include "model/Uuid.h"

#include <string>

namespace corvane {

/// A named, saved clicking setup.
struct Profile {
    Uuid id;
    std::string name;
    /// The six settings.
    CorvaneConfig config;

    bool operator==(const Profile &) const = default;

    /// A profile of `config` with a new random id.
    static Profile fromConfig(std::string name, const CorvaneConfig &config);

    const CorvaneConfig &toConfig() const { return config; }

    /// "Defined Zone · 5/s · (Safari)". Main thread.
    std::string summary(platform::Applications &applications) const;
};

} // namespace corvane
