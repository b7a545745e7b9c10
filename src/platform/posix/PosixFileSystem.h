#pragma once

#include "platform/FileSystem.h"

namespace corvane::posix {

/// The real files.
class PosixFileSystem : public platform::FileSystem {
  public:
    bool exists(const std::filesystem::path &path) override;
    Outcome<std::string> readFile(const std::filesystem::path &path) override;
    Outcome<> createDirectories(const std::filesystem::path &path) override;
    Outcome<> replaceFile(const std::filesystem::path &path, std::string_view content) override;
};

} // namespace corvane::posix
