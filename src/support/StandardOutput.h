#pragma once

#include <functional>
#include <string_view>

namespace corvane {

/// Prints one line to standard output at once. Any thread; lines stay whole.
void printLine(std::string_view line);

/// Sends the lines of `printLine` elsewhere, on the thread that prints them; an empty function
/// restores standard output.
void useOutputSink(std::function<void(std::string_view line)> sink);

} // namespace corvane
