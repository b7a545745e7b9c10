#include "support/WhiteSpace.h"

#include <algorithm>
#include <array>
#include <span>

namespace corvane {

namespace {

using Characters = std::span<const std::string_view>;

/// Every character of white space in UTF-8: the tab and the space separators, then what ends a line
/// or a paragraph.
constexpr std::array<std::string_view, 25> allWhiteSpace = {
    "\t",     " ",      "\u00A0", "\u1680", "\u2000", "\u2001", "\u2002", "\u2003", "\u2004",
    "\u2005", "\u2006", "\u2007", "\u2008", "\u2009", "\u200A", "\u202F", "\u205F", "\u3000",
    "\n",     "\v",     "\f",     "\r",     "\u0085", "\u2028", "\u2029"};
constexpr Characters whiteSpace = allWhiteSpace;
constexpr Characters blanks = whiteSpace.first<18>();

std::string trimmed(std::string_view text, Characters characters) {
    auto found = characters.begin();
    const auto startsText = [&](std::string_view character) { return text.starts_with(character); };
    const auto endsText = [&](std::string_view character) { return text.ends_with(character); };
    while ((found = std::ranges::find_if(characters, startsText)) != characters.end()) {
        text.remove_prefix(found->size());
    }
    while ((found = std::ranges::find_if(characters, endsText)) != characters.end()) {
        text.remove_suffix(found->size());
    }
    return std::string(text);
}

} // namespace

std::string withoutBlanks(std::string_view text) { return trimmed(text, blanks); }

std::string withoutWhiteSpace(std::string_view text) { return trimmed(text, whiteSpace); }

} // namespace corvane
