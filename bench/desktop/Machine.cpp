#include "Machine.h"

#include "NumberColumn.h"
#include "TextFile.h"

#include <array>
#include <cstdlib>
#include <ctime>
#include <thread>

#include <sys/utsname.h>

namespace corvane::bench {

namespace {

std::string processorName() {
    for (const std::string &line : desktop::wholeLines(desktop::readFile("/proc/cpuinfo"))) {
        if (line.starts_with("model name")) {
            return line.substr(line.find(':') + 2);
        }
    }
    return "unknown processor";
}

std::string kernelName() {
    utsname names{};
    uname(&names);
    return std::string(std::begin(names.sysname)) + " " + std::begin(names.release);
}

std::string loadText() {
    double load = 0;
    return getloadavg(&load, 1) == 1 ? shortText(load) : "unknown";
}

std::string timeText() {
    const std::time_t now = std::time(nullptr);
    std::tm fields{};
    gmtime_r(&now, &fields);
    std::array<char, 32> text{};
    const std::size_t length =
        std::strftime(text.data(), text.size(), "%Y-%m-%d %H:%M UTC", &fields);
    return {text.data(), length};
}

} // namespace

Machine Machine::present() {
    Machine machine;
    machine.text_ = processorName() + ", " + std::to_string(std::thread::hardware_concurrency()) +
                    " cores, " + kernelName() + "; load before: " + loadText() + "; " + timeText();
    return machine;
}

} // namespace corvane::bench
