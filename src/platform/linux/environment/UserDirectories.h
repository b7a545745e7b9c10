#pragma once

#include <filesystem>
#include <optional>

namespace corvane::linux {

/// The current user's home: what HOME says if that is an absolute path, else what the password
/// database says. Absolute.
std::filesystem::path homeDirectory();

/// Where the user's desktop settings lie: what XDG_CONFIG_HOME says if that is an absolute path,
/// else .config in the home directory.
std::filesystem::path configDirectory();

/// Where the user's own applications and data lie: what XDG_DATA_HOME says if that is an absolute
/// path, else .local/share in the home directory.
std::filesystem::path dataDirectory();

/// Where the session's sockets lie: what XDG_RUNTIME_DIR says, if that is a folder of this user.
std::optional<std::filesystem::path> runtimeDirectory();

} // namespace corvane::linux
