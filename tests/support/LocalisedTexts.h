#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace corvane::testing {

/// The literals that a C++ source looks up with `localised` and `localisedFormat`, in order. A
/// lookup of anything but a literal, the names in Localised.cpp and the packager's credit line is
/// given as it stands in the source, up to the end of its line.
std::vector<std::string> localisedTexts(std::string_view source);

} // namespace corvane::testing
