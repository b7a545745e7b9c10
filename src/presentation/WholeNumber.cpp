#include "presentation/WholeNumber.h"

#include "support/WhiteSpace.h"

#include <charconv>
#include <system_error>

namespace corvane {

std::string wholeNumberText(std::int64_t value) { return std::to_string(value); }

std::optional<std::int64_t> wholeNumber(std::string_view text) {
    std::string digits = withoutBlanks(text);
    if (digits.starts_with('+') && !digits.starts_with("+-")) {
        digits.erase(0, 1);
    }
    std::int64_t value = 0;
    const char *const end = digits.data() + digits.size();
    const auto [stopped, error] = std::from_chars(digits.data(), end, value);
    return error == std::errc() && stopped == end ? std::optional(value) : std::nullopt;
}

} // namespace corvane
