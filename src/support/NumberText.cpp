#include "support/NumberText.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdint>

namespace corvane {

namespace {

constexpr double smallestPlainValue = 1e-4;
constexpr double firstExponentValue = 0x1p54;

bool needsExponent(double value) {
    const double magnitude = std::fabs(value);
    return value != 0 && (magnitude < smallestPlainValue || magnitude >= firstExponentValue);
}

void appendShortestNumber(std::string &text, double value) {
    std::array<char, 32> buffer; // NOLINT(cppcoreguidelines-pro-type-member-init): filled next
    const auto format =
        needsExponent(value) ? std::chars_format::scientific : std::chars_format::fixed;
    const auto [end, error] =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, format);
    text.append(buffer.data(), end);
}

void appendDecimal(std::string &text, double value) {
    const std::size_t start = text.size();
    appendShortestNumber(text, value);
    if (std::isfinite(value) && text.find_first_of(".e", start) == std::string::npos) {
        text += ".0";
    }
}

} // namespace

std::string shortestNumberText(double value) {
    std::string text;
    appendShortestNumber(text, value);
    return text;
}

std::string decimalText(double value) {
    std::string text;
    appendDecimal(text, value);
    return text;
}

std::string fixedNumberText(double value, int decimals) {
    // The longest double has 309 digits before the point.
    std::string text(static_cast<std::size_t>(decimals) + 320, '\0');
    const auto [end, error] = std::to_chars(text.data(), text.data() + text.size(), value,
                                            std::chars_format::fixed, decimals);
    text.resize(static_cast<std::size_t>(end - text.data()));
    return text;
}

std::string truncatedNumberText(double value) {
    constexpr double limit = 0x1p63;
    const bool fits = value >= -limit && value < limit;
    return fits ? std::to_string(static_cast<std::int64_t>(value)) : shortestNumberText(value);
}

std::string rectangleText(const Rectangle &rectangle) {
    constexpr std::size_t usualLength = 40;
    std::string text;
    text.reserve(usualLength);
    text += '(';
    appendDecimal(text, rectangle.x);
    for (const double value : {rectangle.y, rectangle.width, rectangle.height}) {
        text += ", ";
        appendDecimal(text, value);
    }
    text += ')';
    return text;
}

} // namespace corvane
