#pragma once

#include <filesystem>
#include <string>
#include <string_view>
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

} // namespace corvane::desktop
