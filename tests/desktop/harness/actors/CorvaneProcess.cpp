#include "CorvaneProcess.h"

#include "TextFile.h"
#include "WaitUntil.h"
#include "support/Log.h"

#include <algorithm>
#include <atomic>

#include <fcntl.h>
#include <unistd.h>

namespace corvane::desktop {

namespace {

/// The length of "2026-11-16 00:06:06 +0000 ".
constexpr std::size_t timeStampLength = 26;

std::filesystem::path newLogFile(const Desktop &desktop) {
    static std::atomic<int> count = 0;
    const std::filesystem::path file =
        desktop.folder() / ("corvane-" + std::to_string(++count) + ".log");
    writeFile(file, "");
    return file;
}

/// The place of the log must exist to be replaced.
void ensureLogExists() {
    constexpr mode_t defaultAttributes = 0666;
    const posix::FileDescriptor file(
        open(logPath, O_WRONLY | O_CREAT | O_CLOEXEC, defaultAttributes));
}

} // namespace

CorvaneProcess::CorvaneProcess(const Desktop &desktop, Options options)
    : logFile_(newLogFile(desktop)),
      newLog_(logFile_) {
    ensureLogExists();
    options.mounts.replace(logPath, logFile_);
    std::vector<std::string> arguments = options.launcher;
    arguments.emplace_back(CORVANE_PROGRAM);
    arguments.insert(arguments.end(), options.arguments.begin(), options.arguments.end());
    Environment environment = desktop.environment();
    for (const auto &[name, value] : options.environment) {
        environment[name] = value;
    }
    for (const std::string &name : options.withoutVariables) {
        environment.erase(name);
    }
    process_ = std::make_unique<ChildProcess>(ChildProcess::Launch{.arguments = arguments,
                                                                   .environment = environment,
                                                                   .outputFolder = desktop.folder(),
                                                                   .mounts = &options.mounts});
}

bool CorvaneProcess::waitUntilReady() {
    const auto isReady = [this] {
        return std::ranges::any_of(log(), [](const std::string &message) {
            return message.starts_with("Hotkey (") ||
                   message.starts_with("Failed to register hotkey: ") ||
                   message.starts_with("Failed to install ");
        });
    };
    return waitUntil([&] { return isReady() || !process_->isRunning(); }) && process_->isRunning();
}

const std::vector<std::string> &CorvaneProcess::log() const {
    for (const std::string &line : newLog_.newLines()) {
        log_.push_back(line.substr(std::min(timeStampLength, line.size())));
    }
    return log_;
}

std::string CorvaneProcess::lastLogTime() const {
    const auto lines = wholeLines(readFile(logFile_));
    return lines.empty() ? std::string() : lines.back().substr(0, timeStampLength - 1);
}

int CorvaneProcess::logCount(std::string_view message) const {
    return static_cast<int>(std::ranges::count(log(), message));
}

bool CorvaneProcess::waitForLog(std::string_view message, int count) {
    return waitUntil([&] { return logCount(message) >= count; });
}

bool CorvaneProcess::waitForLogBeginning(std::string_view beginning, int count,
                                         std::chrono::milliseconds limit) {
    const auto begins = [beginning](const std::string &message) {
        return message.starts_with(beginning);
    };
    return waitUntil([&] { return std::ranges::count_if(log(), begins) >= count; }, limit);
}

std::string CorvaneProcess::story() {
    std::string text = "log:\n" + readFile(logFile_) + "standard output:\n" + standardOutput() +
                       "standard error:\n" + standardError();
    return text + (process_->isRunning() ? "still running\n" : "ended\n");
}

std::filesystem::path settingsFile(const Desktop &desktop) {
    return desktop.home() / ".config/corvane/config.json";
}

std::filesystem::path profilesFile(const Desktop &desktop) {
    return desktop.home() / ".config/corvane/profiles.json";
}

void writeSettings(const Desktop &desktop, std::string_view text) {
    writeFile(settingsFile(desktop), text);
}

} // namespace corvane::desktop
