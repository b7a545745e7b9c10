#include "support/LocalisedTexts.h"

#include <algorithm>
#include <array>
#include <cctype>

namespace corvane::testing {

namespace {

constexpr std::array<std::string_view, 3> knownNames = {"std::string_view english", "english",
                                                        "product::credit"};

bool isPartOfName(char letter) {
    return std::isalnum(static_cast<unsigned char>(letter)) != 0 || letter == '_';
}

std::string_view withoutSpaceBefore(std::string_view text) {
    return text.substr(std::min(text.find_first_not_of(" \n"), text.size()));
}

/// Takes literals that stand one behind the other from the beginning of the source.
std::string takeLiterals(std::string_view &source) {
    std::string text;
    while (source.starts_with('"')) {
        source.remove_prefix(1);
        while (!source.empty() && source.front() != '"') {
            if (source.front() == '\\') {
                source.remove_prefix(1);
            }
            text += source.front();
            source.remove_prefix(1);
        }
        source.remove_prefix(std::min<std::size_t>(1, source.size()));
        source = withoutSpaceBefore(source);
    }
    return text;
}

bool startsWithKnownName(std::string_view arguments) {
    return std::ranges::any_of(knownNames, [arguments](std::string_view name) {
        return arguments.starts_with(name) && arguments.size() > name.size() &&
               (arguments[name.size()] == ')' || arguments[name.size()] == ',');
    });
}

void addLookup(std::string_view call, std::size_t nameLength, std::vector<std::string> &texts) {
    std::string_view arguments = withoutSpaceBefore(call.substr(nameLength));
    if (startsWithKnownName(arguments)) {
        return;
    }
    const std::string text = takeLiterals(arguments);
    const bool isLiteral = arguments.starts_with(')') || arguments.starts_with(',');
    texts.push_back(isLiteral ? text : std::string(call.substr(0, call.find('\n'))));
}

} // namespace

std::vector<std::string> localisedTexts(std::string_view source) {
    static constexpr std::array<std::string_view, 2> lookups = {"localised(", "localisedFormat("};
    std::vector<std::string> texts;
    for (std::size_t at = source.find("localised"); at != std::string_view::npos;
         at = source.find("localised", at + 1)) {
        for (const std::string_view lookup : lookups) {
            if (source.substr(at).starts_with(lookup) &&
                (at == 0 || !isPartOfName(source[at - 1]))) {
                addLookup(source.substr(at), lookup.size(), texts);
            }
        }
    }
    return texts;
}

} // namespace corvane::testing
