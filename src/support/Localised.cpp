#include "support/Localised.h"

#include <utility>

namespace corvane {

namespace {

TextLookup &textLookup() {
    static TextLookup lookup;
    return lookup;
}

} // namespace

void useTextLookup(TextLookup lookup) { textLookup() = std::move(lookup); }

std::string localised(std::string_view english) {
    return textLookup() ? textLookup()(english) : std::string(english);
}

std::string localisedFormat(std::string_view english,
                            std::initializer_list<std::string_view> values) {
    static constexpr std::string_view placeholder = "%@";
    const std::string format = localised(english);
    std::string text;
    std::size_t position = 0;
    for (const std::string_view value : values) {
        const std::size_t found = format.find(placeholder, position);
        if (found == std::string::npos) {
            break;
        }
        text.append(format, position, found - position).append(value);
        position = found + placeholder.size();
    }
    return text.append(format, position);
}

} // namespace corvane
