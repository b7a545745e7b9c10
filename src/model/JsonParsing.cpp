#include "model/JsonParsing.h"

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
        return Json::parse(text);
    } catch (const Json::parse_error &error) {
        return std::unexpected(Failure{"not valid JSON at byte " + std::to_string(error.byte)});
    } catch (const Json::out_of_range &) {
        return std::unexpected(Failure{"a number beyond the range of a double"});
    }
}

} // namespace corvane
