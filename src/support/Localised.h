#pragma once

#include <functional>
#include <initializer_list>
#include <string>
#include <string_view>

namespace corvane {

/// Finds the translation of an English text; gives the text itself where it has none.
using TextLookup = std::function<std::string(std::string_view english)>;

/// Sets the lookup behind `localised` for the whole program. Before any other thread starts; an
/// empty function restores the English texts.
void useTextLookup(TextLookup lookup);

/// The text for the user in the user's language, looked up by the English text. Any thread.
std::string localised(std::string_view english);

/// The text with each "%@" replaced, in order, by one of the values.
std::string localisedFormat(std::string_view english,
                            std::initializer_list<std::string_view> values);

} // namespace corvane
