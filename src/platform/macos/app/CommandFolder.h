#pragma once

#include <filesystem>

namespace corvane::macos {

/// Where this user's Corvane keeps its command socket and its lock: in Application Support, which
/// unlike the folders for temporary files is never swept of what was not used for some days. Where
/// that path is too long for the address of a socket, the user's own folder for temporary files.
std::filesystem::path commandFolder();

} // namespace corvane::macos
