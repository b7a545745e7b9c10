#include "ChildProcess.h"
#include "Measurement.h"
#include "TemporaryFolder.h"

#include <filesystem>
#include <stdexcept>

namespace corvane::bench {

std::vector<Figure> measureBinary(Extent /*extent*/) {
    constexpr double bytesPerMegabyte = 1e6;
    const desktop::TemporaryFolder folder;
    const std::filesystem::path stripped = folder.path() / "stripped";
    desktop::ChildProcess strip({.arguments = {"strip", "-o", stripped, CORVANE_PROGRAM},
                                 .environment = {{"PATH", "/usr/bin:/bin"}},
                                 .outputFolder = folder.path()});
    if (strip.waitForEnd() != desktop::ProcessEnd{.exitCode = 0}) {
        throw std::runtime_error("The program cannot be stripped: " + strip.standardError());
    }
    Samples size;
    size.add(static_cast<double>(std::filesystem::file_size(stripped)) / bytesPerMegabyte);
    return {Figure::of("release program, stripped", "MB", {.medianAtMost = 1.5}, size)};
}

} // namespace corvane::bench
