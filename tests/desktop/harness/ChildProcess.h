#pragma once

#include "WaitUntil.h"
#include "platform/posix/FileDescriptor.h"

#include <chrono>
#include <filesystem>
#include <map>
#include <optional>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include <sys/types.h>

namespace corvane::desktop {

class PrivateMounts;

/// The environment variables a program is started with.
using Environment = std::map<std::string, std::string>;

/// How a process ended: with an exit code or by a signal.
struct ProcessEnd {
    std::optional<int> exitCode;
    std::optional<int> signal;

    bool operator==(const ProcessEnd &) const = default;
};

/// For the messages of failed tests.
void PrintTo(const ProcessEnd &end, std::ostream *out);

/// A program started by a test. What it prints is collected in files. It never outlives the test,
/// also when the test is killed.
class ChildProcess {
  public:
    struct Launch {
        /// The program, searched for in PATH, and its arguments.
        std::vector<std::string> arguments;
        Environment environment;
        /// An existing folder for the files with what the program prints.
        std::filesystem::path outputFolder;
        /// Applied before the program starts; not kept.
        const PrivateMounts *mounts = nullptr;
    };

    explicit ChildProcess(const Launch &launch);
    ChildProcess(const ChildProcess &) = delete;
    ChildProcess &operator=(const ChildProcess &) = delete;
    /// Ends the program, first kindly.
    ~ChildProcess();

    pid_t pid() const { return pid_; }
    bool isRunning();

    void signal(int number) const;

    /// Writes to the program's standard input.
    void write(std::string_view text) const;

    /// How it ended; nothing while it still runs when `limit` has passed.
    std::optional<ProcessEnd> waitForEnd(std::chrono::milliseconds limit = timeLimit);

    /// Where the standard output is collected.
    const std::filesystem::path &outputFile() const { return outputFile_; }

    /// Everything printed so far.
    std::string standardOutput() const;
    std::string standardError() const;

  private:
    std::filesystem::path outputFile_;
    std::filesystem::path errorFile_;
    posix::FileDescriptor input_;
    pid_t pid_ = -1;
    std::optional<ProcessEnd> end_;
};

} // namespace corvane::desktop
