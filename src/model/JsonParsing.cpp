#include "model/JsonParsing.h"

#include <algorithm>
#include <string>

namespace corvane {

namespace {

using Json = nlohmann::json;

constexpr int deepestLevel = 512;

constexpr bool isDigit(char character) { return character >= '0' && character <= '9'; }

constexpr bool beginsNumber(char character) { return character == '-' || isDigit(character); }

/// Where the string or number that begins at that place ends. Everything else counts byte by byte.
std::size_t endOfToken(std::string_view text, std::size_t place) {
    if (beginsNumber(text[place])) {
        return std::min(text.find_first_not_of("+-.0123456789Ee", place), text.size());
    }
    if (text[place] == '"') {
        ++place;
        while (place < text.size() && text[place] != '"') {
            place += text[place] == '\\' ? 2U : 1U;
        }
    }
    return std::min(place + 1, text.size());
}

/// Before the parser sees it, which would take memory for every level.
bool isTooDeep(std::string_view text) {
    int level = 0;
    for (std::size_t place = 0; place < text.size() && level <= deepestLevel;
         place = endOfToken(text, place)) {
        if (text[place] == '[' || text[place] == '{') {
            ++level;
        } else if (text[place] == ']' || text[place] == '}') {
            --level;
        }
    }
    return level > deepestLevel;
}

/// With at most two digits in a row: as well or ill formed as before, and within a double.
std::string shortened(std::string_view number) {
    std::string text;
    int digits = 0;
    for (const char character : number) {
        digits = isDigit(character) ? digits + 1 : 0;
        text.append(digits <= 2 ? 1 : 0, character);
    }
    return text;
}

/// For a number beyond a double stands `false`, which no member takes and which is no longer than
/// the shortest of them, 1e309.
std::string withinDouble(std::string_view number) {
    if (Json::accept(number)) {
        return std::string(number);
    }
    std::string small = shortened(number);
    return Json::accept(small) ? "false" : small;
}

/// All that is no number keeps its place, so that errors are reported where they are.
std::string withNumbersWithinDouble(std::string_view text) {
    std::string result(text);
    for (std::size_t place = 0; place < text.size();) {
        const std::size_t end = endOfToken(text, place);
        if (beginsNumber(text[place])) {
            std::string number = withinDouble(text.substr(place, end - place));
            number.insert(0, end - place - number.size(), ' ');
            result.replace(place, number.size(), number);
        }
        place = end;
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
        return Json::parse(text);
    } catch (const Json::parse_error &error) {
        return std::unexpected(Failure{"not valid JSON at byte " + std::to_string(error.byte)});
    } catch (const Json::out_of_range &) {
        // The parser stops at a number beyond a double; the text it gets next has none.
        return parseJson(withNumbersWithinDouble(text));
    }
}

} // namespace corvane
