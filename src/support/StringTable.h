#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace corvane {

/// Translations by the English text.
using StringTable = std::map<std::string, std::string, std::less<>>;

/// Reads a table as macOS bundles hold it: UTF-8 lines of the form "English" = "translation"; with
/// comments between /* and */ and the escapes \" \\ \n \t. Nothing when it is not laid out so or
/// names a text twice.
std::optional<StringTable> parsedStringTable(std::string_view source);

} // namespace corvane
