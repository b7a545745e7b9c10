#pragma once

#include "support/Failure.h"

#include <filesystem>
#include <string>
#include <string_view>

namespace corvane::platform {

/// Files as the stores use them. Any thread.
class FileSystem {
  public:
    virtual ~FileSystem() = default;

    virtual bool exists(const std::filesystem::path &path) = 0;

    virtual Outcome<std::string> readFile(const std::filesystem::path &path) = 0;

    /// With all missing parents and default attributes.
    virtual Outcome<> createDirectories(const std::filesystem::path &path) = 0;

    /// Puts a new file in the place of an old one in one step, durably: whatever happens, the path
    /// holds the whole old or the whole new content.
    virtual Outcome<> replaceFile(const std::filesystem::path &path, std::string_view content) = 0;
};

} // namespace corvane::platform
