#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace corvane::desktop {

/// The whole file; empty when it cannot be read.
std::string readFile(const std::filesystem::path &path);

/// Replaces the file, making its folder where missing.
void writeFile(const std::filesystem::path &path, std::string_view content);

/// The pieces between the separators.
std::vector<std::string> split(std::string_view text, char separator);

/// The lines that are ended by a line feed.
std::vector<std::string> wholeLines(std::string_view text);

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
