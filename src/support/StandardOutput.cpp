#include "support/StandardOutput.h"

#include <cstdio>
#include <string>

namespace corvane {

void printLine(std::string_view line) {
    const std::string text = std::string(line).append("\n");
    std::fwrite(text.data(), 1, text.size(), stdout);
    std::fflush(stdout);
}

} // namespace corvane
