#pragma once

#include <filesystem>

namespace corvane::x11 {

/// The current user's home: what HOME says if that is an absolute path, else what the password
/// database says. Absolute.
std::filesystem::path homeDirectory();

/// Where the user's desktop settings lie: what XDG_CONFIG_HOME says if that is an absolute path,
/// else .config in the home directory.
std::filesystem::path configDirectory();

} // namespace corvane::x11
