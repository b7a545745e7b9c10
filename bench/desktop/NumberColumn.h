#pragma once

#include <string>

namespace corvane::bench {

/// Three decimals for what is small, fewer for what is large.
std::string measuredText(double value);

/// Without zeros at the end.
std::string shortText(double value);

} // namespace corvane::bench
