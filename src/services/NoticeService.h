#pragma once

#include <filesystem>
#include <string>

namespace corvane {

namespace platform {
class FileSystem;
}

/// Remembers, by a file for each, the notices that a user gets only once. Any thread.
class NoticeService {
  public:
    NoticeService(platform::FileSystem &files, const std::filesystem::path &homeDirectory);

    /// Whether the user has not had the notice of that name yet; from now on they have.
    bool isFirst(const std::string &name);

  private:
    platform::FileSystem &files_;
    const std::filesystem::path directory_;
};

} // namespace corvane
