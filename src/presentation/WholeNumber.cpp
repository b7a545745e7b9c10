#include "presentation/WholeNumber.h"

#include <charconv>
#include <system_error>

namespace corvane {

namespace {

std::string_view withoutBlanks(std::string_view text) {
    static constexpr std::string_view blanks = " \t";
    const std::size_t first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

} // namespace

std::string wholeNumberText(std::int64_t value) { return std::to_string(value); }

std::optional<std::int64_t> wholeNumber(std::string_view text) {
    std::string_view digits = withoutBlanks(text);
    if (digits.starts_with('+')) {
        digits.remove_prefix(1);
        if (digits.starts_with('-')) {
            return std::nullopt;
        }
    }
    std::int64_t value = 0;
    const char *const end = digits.data() + digits.size();
    const auto [stopped, error] = std::from_chars(digits.data(), end, value);
    return error == std::errc() && stopped == end ? std::optional(value) : std::nullopt;
}

} // namespace corvane
