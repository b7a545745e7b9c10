#include "platform/x11/connection/PropertyValue.h"

#include <cstring>

namespace corvane::x11 {

std::vector<std::uint32_t> PropertyValue::numbers() const {
    if (format != 32) {
        return {};
    }
    std::vector<std::uint32_t> numbers(content.size() / sizeof(std::uint32_t));
    if (!numbers.empty()) {
        std::memcpy(numbers.data(), content.data(), numbers.size() * sizeof(std::uint32_t));
    }
    return numbers;
}

std::optional<std::uint32_t> PropertyValue::number() const {
    const auto all = numbers();
    return all.empty() ? std::nullopt : std::optional(all.front());
}

std::string_view PropertyValue::bytes() const { return format == 8 ? content : std::string_view(); }

std::string_view PropertyValue::text() const {
    const std::string_view all = bytes();
    return all.substr(0, all.find('\0'));
}

} // namespace corvane::x11
