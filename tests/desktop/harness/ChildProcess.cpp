#include "ChildProcess.h"

#include "TextFile.h"
#include "servers/PrivateMounts.h"

#include <array>
#include <atomic>
#include <csignal>
#include <stdexcept>

#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace corvane::desktop {

namespace {

using posix::FileDescriptor;

constexpr int couldNotStart = 127;

FileDescriptor createFile(const std::filesystem::path &path) {
    constexpr mode_t readableByOwner = 0600;
    return FileDescriptor(
        open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, readableByOwner));
}

/// The pointers exec wants. They point into `texts`.
std::vector<char *> pointersTo(std::vector<std::string> &texts) {
    std::vector<char *> pointers;
    pointers.reserve(texts.size() + 1);
    for (std::string &text : texts) {
        pointers.push_back(text.data());
    }
    pointers.push_back(nullptr);
    return pointers;
}

std::vector<std::string> assignments(const Environment &environment) {
    std::vector<std::string> result;
    result.reserve(environment.size());
    for (const auto &[name, value] : environment) {
        result.emplace_back(name).append("=").append(value);
    }
    return result;
}

/// Only what is allowed between fork and exec.
struct ChildSide {
    int input;
    int output;
    int error;
    pid_t parent;
    const PrivateMounts *mounts;
    char **arguments;
    char **environment;

    [[noreturn]] void run() const {
        prctl(PR_SET_PDEATHSIG, SIGTERM);
        if (getppid() == parent && dup2(input, STDIN_FILENO) >= 0 &&
            dup2(output, STDOUT_FILENO) >= 0 && dup2(error, STDERR_FILENO) >= 0 &&
            restoreSignals() && (mounts == nullptr || mounts->enter())) {
            execvpe(arguments[0], arguments, environment);
        }
        static constexpr std::string_view message = "could not be started\n";
        [[maybe_unused]] const ssize_t written =
            ::write(STDERR_FILENO, message.data(), message.size());
        _exit(couldNotStart);
    }

    static bool restoreSignals() {
        sigset_t none;
        sigemptyset(&none);
        return std::signal(SIGPIPE, SIG_DFL) != SIG_ERR &&
               sigprocmask(SIG_SETMASK, &none, nullptr) == 0;
    }
};

ProcessEnd processEnd(int status) {
    if (WIFEXITED(status)) {
        return {.exitCode = WEXITSTATUS(status)};
    }
    return {.signal = WTERMSIG(status)};
}

std::string nextFileName(const std::string &program) {
    static std::atomic<int> count = 0;
    return std::filesystem::path(program).filename().string() + "-" + std::to_string(++count);
}

} // namespace

void PrintTo(const ProcessEnd &end, std::ostream *out) {
    if (end.exitCode) {
        *out << "exit code " << *end.exitCode;
    } else if (end.signal) {
        *out << "signal " << *end.signal;
    } else {
        *out << "no end";
    }
}

ChildProcess::ChildProcess(const Launch &launch) {
    const std::filesystem::path base = launch.outputFolder / nextFileName(launch.arguments.front());
    outputFile_ = base.string() + ".out";
    errorFile_ = base.string() + ".err";
    const FileDescriptor output = createFile(outputFile_);
    const FileDescriptor error = createFile(errorFile_);
    std::array<int, 2> ends{-1, -1};
    if (!output.isOpen() || !error.isOpen() || pipe2(ends.data(), O_CLOEXEC) != 0) {
        throw std::runtime_error("No files for what " + launch.arguments.front() + " prints");
    }
    const FileDescriptor read(ends[0]);
    input_ = FileDescriptor(ends[1]);

    std::vector<std::string> arguments = launch.arguments;
    std::vector<std::string> environment = assignments(launch.environment);
    const std::vector<char *> argumentPointers = pointersTo(arguments);
    const std::vector<char *> environmentPointers = pointersTo(environment);
    const ChildSide child{.input = read.get(),
                          .output = output.get(),
                          .error = error.get(),
                          .parent = getpid(),
                          .mounts = launch.mounts,
                          .arguments = const_cast<char **>(argumentPointers.data()),
                          .environment = const_cast<char **>(environmentPointers.data())};
    // A program that has gone away shows as a failed write.
    std::signal(SIGPIPE, SIG_IGN);
    pid_ = fork();
    if (pid_ == 0) {
        child.run();
    }
    if (pid_ < 0) {
        throw std::runtime_error("No process for " + launch.arguments.front());
    }
}

ChildProcess::~ChildProcess() {
    constexpr std::chrono::seconds kindness{5};
    signal(SIGTERM);
    if (!waitForEnd(kindness)) {
        signal(SIGKILL);
        waitForEnd();
    }
}

bool ChildProcess::isRunning() { return !waitForEnd(std::chrono::milliseconds::zero()); }

void ChildProcess::signal(int number) const {
    if (!end_) {
        kill(pid_, number);
    }
}

void ChildProcess::write(std::string_view text) const {
    while (!text.empty()) {
        const ssize_t written = ::write(input_.get(), text.data(), text.size());
        if (written < 0) {
            throw std::runtime_error("The program does not read its input");
        }
        text.remove_prefix(static_cast<std::size_t>(written));
    }
}

std::optional<ProcessEnd> ChildProcess::waitForEnd(std::chrono::milliseconds limit) {
    waitUntil(
        [this] {
            int status = 0;
            if (!end_ && waitpid(pid_, &status, WNOHANG) == pid_) {
                end_ = processEnd(status);
            }
            return end_.has_value();
        },
        limit);
    return end_;
}

std::string ChildProcess::standardOutput() const { return readFile(outputFile_); }
std::string ChildProcess::standardError() const { return readFile(errorFile_); }

} // namespace corvane::desktop
