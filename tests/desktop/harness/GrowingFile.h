#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <utility>
#include <vector>

namespace corvane::desktop {

/// A file that another program appends lines to, read piece by piece: what a long test costs does
/// not grow with what has been written already.
class GrowingFile {
  public:
    explicit GrowingFile(std::filesystem::path path) : path_(std::move(path)) {}

    /// The lines that were ended by a line feed since the last call.
    std::vector<std::string> newLines();

  private:
    std::filesystem::path path_;
    std::int64_t position_ = 0;
    /// The beginning of a line that has not been ended yet.
    std::string unended_;
};

} // namespace corvane::desktop
