#include "Holdings.h"

#include "TextFile.h"

#include <filesystem>
#include <iterator>
#include <sstream>
#include <string>

namespace corvane::desktop {

namespace {

long statusField(const std::string &status, const std::string &name) {
    std::istringstream rest(status.substr(status.find(name) + name.size()));
    long value = 0;
    rest >> value;
    return value;
}

} // namespace

Holdings holdingsOf(pid_t process) {
    const std::filesystem::path folder = "/proc/" + std::to_string(process);
    const std::string status = readFile(folder / "status");
    return {.memoryKilobytes = statusField(status, "VmRSS:"),
            .openFiles = std::distance(std::filesystem::directory_iterator(folder / "fd"), {}),
            .threads = statusField(status, "Threads:")};
}

} // namespace corvane::desktop
