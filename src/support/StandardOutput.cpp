#include "support/StandardOutput.h"

#include <cstdio>
#include <string>
#include <utility>

namespace corvane {

namespace {

std::function<void(std::string_view)> &outputSink() {
    static std::function<void(std::string_view)> sink;
    return sink;
}

} // namespace

void printLine(std::string_view line) {
    if (outputSink()) {
        outputSink()(line);
        return;
    }
    const std::string text = std::string(line).append("\n");
    std::fwrite(text.data(), 1, text.size(), stdout);
    std::fflush(stdout);
}

void useOutputSink(std::function<void(std::string_view)> sink) { outputSink() = std::move(sink); }

} // namespace corvane
