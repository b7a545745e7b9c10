#pragma once

#include "model/CorvaneConfig.h"

#include <nlohmann/json.hpp>

namespace corvane {

/// The six settings as the configuration file holds them. Absent optionals are left out.
nlohmann::json jsonValue(const CorvaneConfig &config);

} // namespace corvane
