#pragma once

#include <filesystem>
#include <string>

namespace corvane::desktop {

/// A new, empty, private folder that disappears with its owner.
class TemporaryFolder {
  public:
    TemporaryFolder();
    TemporaryFolder(const TemporaryFolder &) = delete;
    TemporaryFolder &operator=(const TemporaryFolder &) = delete;
    ~TemporaryFolder();

    const std::filesystem::path &path() const { return path_; }

    /// A new private folder of that name in this one.
    std::filesystem::path makeFolder(const std::string &name) const;

  private:
    std::filesystem::path path_;
};

} // namespace corvane::desktop
