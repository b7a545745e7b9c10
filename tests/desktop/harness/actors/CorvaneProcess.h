#pragma once

#include "ChildProcess.h"
#include "TextFile.h"
#include "servers/Desktop.h"
#include "servers/PrivateMounts.h"

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvane::desktop {

/// The real program on a virtual desktop. It finds a private file in the place of the diagnostic
/// log, so that several can run at the same time.
class CorvaneProcess {
  public:
    struct Options {
        /// What runs the program, such as a profiler with its arguments; nothing by default.
        std::vector<std::string> launcher;
        std::vector<std::string> arguments;
        /// Variables to set beside those of the desktop.
        Environment environment;
        /// Variables to take away.
        std::vector<std::string> withoutVariables;
        PrivateMounts mounts;
    };

    CorvaneProcess(const Desktop &desktop, Options options);
    explicit CorvaneProcess(const Desktop &desktop) : CorvaneProcess(desktop, Options{}) {}

    ChildProcess &process() { return *process_; }

    /// Waits until the launch sequence is through; false when time runs out or the program ends.
    bool waitUntilReady();

    /// The messages logged so far, without their time stamps.
    const std::vector<std::string> &log() const;
    /// The time stamp of the last line, such as "2026-11-16 00:06:06 +0000".
    std::string lastLogTime() const;
    int logCount(std::string_view message) const;

    /// Waits until the message has been logged `count` times; false when time runs out.
    bool waitForLog(std::string_view message, int count = 1);
    /// The same for any message that begins so.
    bool waitForLogBeginning(std::string_view beginning, int count = 1,
                             std::chrono::milliseconds limit = timeLimit);

    std::string standardOutput() const { return process_->standardOutput(); }
    std::string standardError() const { return process_->standardError(); }

    /// The log, what was printed and how the program ended, for the message of a failed test.
    std::string story();

  private:
    std::filesystem::path logFile_;
    mutable GrowingFile newLog_;
    mutable std::vector<std::string> log_;
    std::unique_ptr<ChildProcess> process_;
};

/// Where the program reads and writes its settings on that desktop.
std::filesystem::path settingsFile(const Desktop &desktop);
std::filesystem::path profilesFile(const Desktop &desktop);

/// Puts the text into the settings file.
void writeSettings(const Desktop &desktop, std::string_view text);

} // namespace corvane::desktop
