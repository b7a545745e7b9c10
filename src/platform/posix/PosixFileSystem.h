#pragma once

#include "platform/FileSystem.h"

#include <cstddef>

namespace corvane::posix {

class FileCalls;

/// The real files. Only ordinary files are read and replaced; nothing waits for a pipe. A replaced
/// file keeps its permissions and the links that lead to it, also where they lead to no file yet.
class PosixFileSystem : public platform::FileSystem {
  public:
    /// In bytes; what is larger is not read, whatever it is.
    static constexpr std::size_t largestFile = std::size_t{128} * 1024 * 1024;

    PosixFileSystem();
    /// The calls outlive the object.
    explicit PosixFileSystem(FileCalls &calls) : calls_(calls) {}

    bool exists(const std::filesystem::path &path) override;
    Outcome<std::string> readFile(const std::filesystem::path &path) override;
    Outcome<> createDirectories(const std::filesystem::path &path) override;
    Outcome<> replaceFile(const std::filesystem::path &path, std::string_view content) override;

  private:
    bool makeDirectories(const std::filesystem::path &path);
    void synchroniseDirectory(const std::filesystem::path &path);
    Outcome<std::filesystem::path> linkTarget(const std::filesystem::path &path);

    FileCalls &calls_;
};

} // namespace corvane::posix
