#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace corvane::linux {

/// The locales whose texts the user wants, the best first, like "de_AT.UTF-8". As everywhere on the
/// system, LC_ALL, LC_MESSAGES or LANG names the locale, and LANGUAGE a list that goes before it
/// unless that locale is C or POSIX. Empty when nothing is named. Start of the program, main
/// thread.
std::vector<std::string> userLocales();

/// The first of the locales that one of the tables suits, as that table's name; empty when English
/// comes first or none suits. Tables are named by their language, and Chinese by its script too:
/// "de", "zh-Hans".
std::string bestTable(const std::vector<std::string> &locales,
                      const std::vector<std::string> &tables);

} // namespace corvane::linux
