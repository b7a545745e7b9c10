#pragma once

#include <string>
#include <string_view>

namespace corvane {

/// The UTF-8 text without horizontal white space at both ends: tabs and all kinds of spaces, but
/// not line breaks.
std::string withoutBlanks(std::string_view text);

/// The UTF-8 text without any white space at both ends, line breaks included.
std::string withoutWhiteSpace(std::string_view text);

} // namespace corvane
