#include "model/Uuid.h"

#include <random>

namespace corvane {

namespace {

constexpr std::string_view digits = "0123456789ABCDEF";
constexpr std::size_t textLength = 36;

bool isHyphenPlace(std::size_t place) {
    return place == 8 || place == 13 || place == 18 || place == 23;
}

std::optional<std::uint8_t> digitValue(char character) {
    const bool isLowerCase = character >= 'a' && character <= 'f';
    const auto place =
        digits.find(isLowerCase ? static_cast<char>(character - 'a' + 'A') : character);
    return place == std::string_view::npos ? std::nullopt
                                           : std::optional(static_cast<std::uint8_t>(place));
}

} // namespace

Uuid Uuid::random() {
    Uuid uuid;
    std::random_device source;
    for (std::uint8_t &byte : uuid.bytes_) {
        byte = static_cast<std::uint8_t>(source());
    }
    uuid.bytes_[6] = static_cast<std::uint8_t>((uuid.bytes_[6] & 0x0F) | 0x40);
    uuid.bytes_[8] = static_cast<std::uint8_t>((uuid.bytes_[8] & 0x3F) | 0x80);
    return uuid;
}

std::optional<Uuid> Uuid::fromText(std::string_view text) {
    if (text.size() != textLength) {
        return std::nullopt;
    }
    Uuid uuid;
    std::size_t nibble = 0;
    for (std::size_t place = 0; place < textLength; ++place) {
        if (isHyphenPlace(place)) {
            if (text[place] != '-') {
                return std::nullopt;
            }
            continue;
        }
        const auto value = digitValue(text[place]);
        if (!value) {
            return std::nullopt;
        }
        std::uint8_t &byte = uuid.bytes_.at(nibble / 2);
        byte = static_cast<std::uint8_t>((byte << 4) | *value);
        ++nibble;
    }
    return uuid;
}

std::string Uuid::text() const {
    std::string text;
    for (const std::uint8_t byte : bytes_) {
        if (isHyphenPlace(text.size())) {
            text += '-';
        }
        text += digits[byte >> 4];
        text += digits[byte & 0x0F];
    }
    return text;
}

} // namespace corvane
