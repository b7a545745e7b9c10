#include "model/JsonParsing.h"

#include <algorithm>
#include <map>
#include <string>

namespace corvane {

namespace {

using Json = nlohmann::json;

constexpr int deepestLevel = 512;

/// Before the parser sees it, which would take memory for every level.
bool isTooDeep(std::string_view text) {
    int level = 0;
    bool isInString = false;
    bool isEscaped = false;
    for (const char character : text) {
        if (isInString) {
            isInString = isEscaped || character != '"';
            isEscaped = !isEscaped && character == '\\';
        } else if (character == '"') {
            isInString = true;
        } else if (character == '[' || character == '{') {
            ++level;
        } else if (character == ']' || character == '}') {
            --level;
        }
        if (level > deepestLevel) {
            return true;
        }
    }
    return false;
}

/// Throws `Json::out_of_range` at a number beyond the range of a double.
Outcome<Json> parse(std::string_view text) {
    try {
        return Json::parse(text);
    } catch (const Json::parse_error &error) {
        return std::unexpected(Failure{"not valid JSON at byte " + std::to_string(error.byte)});
    }
}

bool isBeyondRange(std::string_view number) {
    try {
        const auto parsed = parse(number);
        return false;
    } catch (const Json::out_of_range &) {
        return true;
    }
}

bool startsNumber(char character) {
    return character == '-' || (character >= '0' && character <= '9');
}

/// The length of the longest beginning that may be a number.
std::size_t numberLength(std::string_view text) {
    const auto endOfDigits = [text](std::size_t place) {
        return std::min(text.find_first_not_of("0123456789", place), text.size());
    };
    const auto stands = [text](std::size_t place, std::string_view characters) {
        return place < text.size() && characters.contains(text[place]);
    };
    std::size_t end = endOfDigits(stands(0, "-") ? 1 : 0);
    if (stands(end, ".")) {
        end = endOfDigits(end + 1);
    }
    if (stands(end, "eE")) {
        end = endOfDigits(stands(end + 1, "+-") ? end + 2 : end + 1);
    }
    return end;
}

/// How many characters stand together: a whole number, an escaped character, else one.
std::size_t tokenLength(std::string_view text, bool isInString) {
    if (isInString) {
        return text.front() == '\\' ? std::min<std::size_t>(2, text.size()) : 1;
    }
    return startsNumber(text.front()) ? numberLength(text) : 1;
}

/// Asks the parser once only for each number, as asking takes long.
std::string withoutNumbersBeyondRange(std::string_view text) {
    std::string result;
    std::map<std::string_view, bool> known;
    bool isInString = false;
    while (!text.empty()) {
        const std::string_view token = text.substr(0, tokenLength(text, isInString));
        isInString = isInString != (token == "\"");
        const bool isNumber = !isInString && startsNumber(token.front());
        if (isNumber && !known.contains(token)) {
            known.emplace(token, isBeyondRange(token));
        }
        result += isNumber && known.at(token) ? "false" : token;
        text.remove_prefix(token.size());
    }
    return result;
}

} // namespace

Outcome<Json> parseJson(std::string_view text) {
    // The parser takes this byte for the end of the text.
    if (const std::size_t place = text.find('\0'); place != std::string_view::npos) {
        return std::unexpected(Failure{"not valid JSON at byte " + std::to_string(place + 1)});
    }
    if (isTooDeep(text)) {
        return std::unexpected(
            Failure{"nested more than " + std::to_string(deepestLevel) + " levels deep"});
    }
    try {
        return parse(text);
    } catch (const Json::out_of_range &) {
        return parse(withoutNumbersBeyondRange(text));
    }
}

} // namespace corvane
