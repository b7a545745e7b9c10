#pragma once

#include "support/Failure.h"

#include <nlohmann/json.hpp>

#include <string_view>

namespace corvane {

/// The value that a JSON text in UTF-8 stands for, in a time that grows with the text's length
/// alone. Fails on anything that is not JSON and on values nested more than 512 levels deep. A
/// number beyond the range of a double is read as `false`.
Outcome<nlohmann::json> parseJson(std::string_view text);

} // namespace corvane
