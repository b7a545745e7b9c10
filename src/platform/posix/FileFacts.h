#pragma once

#include "presentation/DesktopFacts.h"

#include <filesystem>
#include <vector>

namespace corvane::posix {

/// How this process may use the files and folders. Any thread.
std::vector<FileFact> readFileFacts(const std::vector<std::filesystem::path> &paths);

} // namespace corvane::posix
