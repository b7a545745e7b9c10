#pragma once

#include <map>
#include <string>
#include <string_view>

namespace corvane::freedesktop {

/// The values of a desktop file's main group by key, with their escapes resolved.
std::map<std::string, std::string> desktopEntryValues(std::string_view file);

/// A text as the value of a string key.
std::string desktopEntryString(std::string_view text);

/// A command that starts the program at `path` without arguments, as the value of the key Exec.
std::string desktopEntryCommand(std::string_view path);

} // namespace corvane::freedesktop
