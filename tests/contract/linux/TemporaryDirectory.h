#pragma once

#include <cstdlib>
#include <filesystem>
#include <string>
#include <system_error>

namespace corvane::contract {

/// A new, empty directory that disappears with its owner.
class TemporaryDirectory {
  public:
    TemporaryDirectory() : path_(mkdtemp(name_.data())) {}
    ~TemporaryDirectory() {
        std::error_code error;
        std::filesystem::remove_all(path_, error);
    }

    TemporaryDirectory(const TemporaryDirectory &) = delete;
    TemporaryDirectory &operator=(const TemporaryDirectory &) = delete;

    const std::filesystem::path &path() const { return path_; }

  private:
    std::string name_ = (std::filesystem::temp_directory_path() / "corvane-XXXXXX").string();
    std::filesystem::path path_;
};

} // namespace corvane::contract
