#include "GrowingFile.h"

#include "TextFile.h"

#include <fstream>
#include <iterator>

namespace corvane::desktop {

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
