#pragma once

#include <string>
#include <string_view>

namespace corvane::linux {

/// The text as valid UTF-8; what is not becomes the replacement character.
std::string utf8Text(std::string_view bytes);

/// The text of a STRING property in UTF-8.
std::string latin1Text(std::string_view bytes);

/// The text of a COMPOUND_TEXT property in UTF-8. Character sets other than Latin-1 and UTF-8 lose
/// their letters.
std::string compoundText(std::string_view bytes);

} // namespace corvane::linux
