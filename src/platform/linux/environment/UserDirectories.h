#pragma once

#include <filesystem>
#include <optional>

namespace corvane::linux {

/// The current user's home: HOME if that is an absolute path, else the one in the password
/// database. Absolute.
std::filesystem::path homeDirectory();

/// The folder of the user's settings: XDG_CONFIG_HOME if that is an absolute path, else .config in
/// the home directory.
std::filesystem::path configDirectory();

/// The folder of the user's applications and data: XDG_DATA_HOME if that is an absolute path, else
/// .local/share in the home directory.
std::filesystem::path dataDirectory();

/// The folder of the session's sockets: XDG_RUNTIME_DIR if that is a folder of this user.
std::optional<std::filesystem::path> runtimeDirectory();

} // namespace corvane::linux
