#pragma once

#include <string_view>

namespace corvane {

/// Prints one line to standard output at once. Any thread; lines stay whole.
void printLine(std::string_view line);

} // namespace corvane
