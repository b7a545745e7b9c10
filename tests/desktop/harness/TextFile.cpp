#include "TextFile.h"

#include <fstream>
#include <iterator>

namespace corvane::desktop {

std::string readFile(const std::filesystem::path &path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void writeFile(const std::filesystem::path &path, std::string_view content) {
    std::filesystem::create_directories(path.parent_path());
    std::ofstream(path, std::ios::binary) << content;
}

std::vector<std::string> split(std::string_view text, char separator) {
    std::vector<std::string> pieces;
    std::size_t start = 0;
    for (std::size_t end = text.find(separator); end != std::string_view::npos;
         end = text.find(separator, start)) {
        pieces.emplace_back(text.substr(start, end - start));
        start = end + 1;
    }
    pieces.emplace_back(text.substr(start));
    return pieces;
}

std::vector<std::string> wholeLines(std::string_view text) {
    std::vector<std::string> lines = split(text, '\n');
    lines.pop_back();
    return lines;
}

std::vector<std::string> GrowingFile::newLines() {
    std::ifstream file(path_, std::ios::binary);
    file.seekg(position_);
    const std::string text{std::istreambuf_iterator<char>(file), {}};
    position_ += static_cast<std::int64_t>(text.size());
    std::vector<std::string> lines = split(unended_ + text, '\n');
    unended_ = std::move(lines.back());
    lines.pop_back();
    return lines;
}

} // namespace corvane::desktop
