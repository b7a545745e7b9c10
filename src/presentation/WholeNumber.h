#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace corvane {

/// The number in decimal digits, without grouping: "-5", "9999".
std::string wholeNumberText(std::int64_t value);

/// The number a user has typed: decimal digits, with a sign and blanks around if they like. Nothing
/// for any other text, and for a number beyond 64 bits.
std::optional<std::int64_t> wholeNumber(std::string_view text);

} // namespace corvane
