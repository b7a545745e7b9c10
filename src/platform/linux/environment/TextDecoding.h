#pragma once

#include <string>
#include <string_view>

namespace corvane::linux {

/// The text as valid UTF-8; invalid bytes become replacement characters.
std::string utf8Text(std::string_view bytes);

/// The text of a STRING property in UTF-8.
std::string latin1Text(std::string_view bytes);

/// The text of a COMPOUND_TEXT property in UTF-8. Only Latin-1 and UTF-8 segments are decoded;
/// those in other character sets are read as Latin-1.
std::string compoundText(std::string_view bytes);

} // namespace corvane::linux
