#pragma once

#include "support/Failure.h"

#include <nlohmann/json.hpp>

#include <string>

namespace corvane {

/// The value as text: members sorted by key, one a line, two blanks a level, `"key" : value`, no
/// line feed at the end. Text that is not valid UTF-8 is made so. Fails on a number that is not
/// finite, for which JSON has no form.
Outcome<std::string> jsonText(const nlohmann::json &json);

} // namespace corvane
