#include "ProcessTable.h"

#include "TextFile.h"

#include <algorithm>
#include <charconv>
#include <filesystem>
#include <iterator>
#include <optional>
#include <sstream>
#include <string>

namespace corvane::desktop {

namespace {

/// A line of the table.
struct ProcessState {
    char state = ' ';
    pid_t parent = 0;
};

/// Nothing where there is no such process.
std::optional<ProcessState> stateOf(const std::filesystem::path &process) {
    const std::string text = readFile(process / "stat");
    // The name, between brackets, may hold anything.
    const std::size_t endOfName = text.rfind(')');
    if (endOfName == std::string::npos) {
        return std::nullopt;
    }
    ProcessState found;
    std::istringstream(text.substr(endOfName + 1)) >> found.state >> found.parent;
    return found;
}

std::filesystem::path folderOf(pid_t process) {
    return std::filesystem::path("/proc") / std::to_string(process);
}

bool hasEnded(const ProcessState &process) { return process.state == 'Z' || process.state == 'X'; }

long statusField(const std::string &status, const std::string &name) {
    std::istringstream rest(status.substr(status.find(name) + name.size()));
    long value = 0;
    rest >> value;
    return value;
}

} // namespace

std::vector<pid_t> childrenOf(pid_t parent) {
    std::vector<pid_t> children;
    for (const auto &entry : std::filesystem::directory_iterator("/proc")) {
        const std::string name = entry.path().filename();
        pid_t process = 0;
        const auto read = std::from_chars(name.data(), name.data() + name.size(), process);
        if (read.ec != std::errc() || read.ptr != name.data() + name.size()) {
            continue;
        }
        const auto state = stateOf(entry.path());
        if (state && state->parent == parent && !hasEnded(*state)) {
            children.push_back(process);
        }
    }
    return children;
}

bool isAlive(pid_t process) {
    const auto state = stateOf(folderOf(process));
    return state && !hasEnded(*state);
}

bool isStopped(pid_t process) {
    const std::filesystem::path threads = folderOf(process) / "task";
    return std::ranges::all_of(std::filesystem::directory_iterator(threads), [](const auto &entry) {
        const auto state = stateOf(entry.path());
        return state && state->state == 'T';
    });
}

Holdings holdingsOf(pid_t process) {
    const std::filesystem::path folder = folderOf(process);
    const std::string status = readFile(folder / "status");
    return {.memoryKilobytes = statusField(status, "VmRSS:"),
            .openFiles = std::distance(std::filesystem::directory_iterator(folder / "fd"), {}),
            .threads = statusField(status, "Threads:")};
}

} // namespace corvane::desktop
