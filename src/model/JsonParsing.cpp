#include "model/JsonParsing.h"

#include <algorithm>
#include <string>

namespace corvane {

namespace {

using Json = nlohmann::json;

constexpr int deepestLevel = 512;

struct NestedTooDeep {};

bool watchDepth(int depth, Json::parse_event_t event, const Json &) {
    const bool isOpening =
        event == Json::parse_event_t::array_start || event == Json::parse_event_t::object_start;
    if (isOpening && depth >= deepestLevel) {
        throw NestedTooDeep{};
    }
    return true;
}

/// Throws `Json::out_of_range` at a number beyond the range of a double.
Outcome<Json> parse(std::string_view text) {
    try {
        return Json::parse(text, watchDepth);
    } catch (const Json::parse_error &error) {
        return std::unexpected(Failure{"not valid JSON at byte " + std::to_string(error.byte)});
    } catch (const NestedTooDeep &) {
        return std::unexpected(
            Failure{"nested more than " + std::to_string(deepestLevel) + " levels deep"});
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

/// How many characters stand together: a whole number, an escaped character, else one.
std::size_t tokenLength(std::string_view text, bool isInString) {
    if (isInString) {
        return text.front() == '\\' ? std::min<std::size_t>(2, text.size()) : 1;
    }
    return startsNumber(text.front())
               ? std::min(text.find_first_not_of("+-.0123456789eE"), text.size())
               : 1;
}

std::string withoutNumbersBeyondRange(std::string_view text) {
    std::string result;
    bool isInString = false;
    while (!text.empty()) {
        const std::string_view token = text.substr(0, tokenLength(text, isInString));
        isInString = isInString != (token == "\"");
        const bool isNumber = !isInString && startsNumber(token.front());
        result += isNumber && isBeyondRange(token) ? "false" : token;
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
    try {
        return parse(text);
    } catch (const Json::out_of_range &) {
        return parse(withoutNumbersBeyondRange(text));
    }
}

} // namespace corvane
