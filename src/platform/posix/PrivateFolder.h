#pragma once

#include "support/Failure.h"

#include <filesystem>

namespace corvane::posix {

/// Makes sure that the folder exists, belongs to this user and is closed to all others. Fails where
/// another user has made it first.
Outcome<> makePrivateFolder(const std::filesystem::path &folder);

/// Whether the folder is as `makePrivateFolder` leaves it.
bool isPrivateFolder(const std::filesystem::path &folder);

} // namespace corvane::posix
