#include "ProcessUsage.h"

#include "TextFile.h"

#include <ctime>
#include <filesystem>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>

namespace corvane::bench {

namespace {

/// The number behind a name in a file such as /proc/self/status.
long numberBehind(const std::string &text, std::string_view name) {
    const auto place = text.find(name);
    if (place == std::string::npos) {
        throw std::runtime_error("The process has gone");
    }
    std::istringstream rest(text.substr(place + name.size()));
    long number = 0;
    rest >> number;
    return number;
}

std::filesystem::path folderOf(pid_t process) { return "/proc/" + std::to_string(process); }

std::chrono::nanoseconds processorTimeOf(pid_t process) {
    clockid_t clock{};
    timespec time{};
    if (clock_getcpuclockid(process, &clock) != 0 || clock_gettime(clock, &time) != 0) {
        throw std::runtime_error("The process has gone");
    }
    return std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
}

std::string memoryOf(pid_t process) {
    return desktop::readFile(folderOf(process) / "smaps_rollup");
}

double megabytes(long kilobytes) {
    constexpr double kilobytesPerMegabyte = 1024;
    return static_cast<double>(kilobytes) / kilobytesPerMegabyte;
}

} // namespace

ProcessUsage ProcessUsage::of(pid_t process) {
    ProcessUsage usage{.processorTime = processorTimeOf(process)};
    for (const auto &thread : std::filesystem::directory_iterator(folderOf(process) / "task")) {
        usage.wakeUps +=
            numberBehind(desktop::readFile(thread.path() / "status"), "\nvoluntary_ctxt_switches:");
    }
    return usage;
}

double threadMilliseconds() {
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    const auto used = std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
    return std::chrono::duration<double, std::milli>(used).count();
}

double privateMegabytes(pid_t process) {
    const std::string memory = memoryOf(process);
    return megabytes(numberBehind(memory, "Private_Clean:") +
                     numberBehind(memory, "Private_Dirty:"));
}

double writtenMegabytes(pid_t process) {
    return megabytes(numberBehind(memoryOf(process), "\nAnonymous:"));
}

} // namespace corvane::bench
