#pragma once

#include "platform/FileSystem.h"

#include <cstddef>

namespace corvane::posix {

/// The real files. Only ordinary files are read and replaced; nothing waits for a pipe. A replaced
/// file keeps its permissions and the links that lead to it.
class PosixFileSystem : public platform::FileSystem {
  public:
    /// In bytes; what is larger is not read, whatever it is.
    static constexpr std::size_t largestFile = 64U * 1024 * 1024;

    bool exists(const std::filesystem::path &path) override;
    Outcome<std::string> readFile(const std::filesystem::path &path) override;
    Outcome<> createDirectories(const std::filesystem::path &path) override;
    Outcome<> replaceFile(const std::filesystem::path &path, std::string_view content) override;
};

} // namespace corvane::posix
