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

std::string shortestText(double value, std::chars_format format) {
    std::array<char, 32> buffer{};
    const auto [end, error] =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, format);
    return {buffer.data(), end};
}

bool needsExponent(double value) {
    const double magnitude = std::fabs(value);
    return value != 0 && (magnitude < smallestPlainValue || magnitude >= firstExponentValue);
}

} // namespace

std::string shortestNumberText(double value) {
    return shortestText(value, needsExponent(value) ? std::chars_format::scientific
                                                    : std::chars_format::fixed);
}

std::string decimalText(double value) {
    std::string text = shortestNumberText(value);
    if (std::isfinite(value) && text.find_first_of(".e") == std::string::npos) {
        text += ".0";
    }
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
    return "(" + decimalText(rectangle.x) + ", " + decimalText(rectangle.y) + ", " +
           decimalText(rectangle.width) + ", " + decimalText(rectangle.height) + ")";
}

} // namespace corvane
