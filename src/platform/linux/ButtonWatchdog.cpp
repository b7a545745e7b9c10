#include "platform/linux/ButtonWatchdog.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>

#include <fcntl.h>
#include <sys/prctl.h>
#include <unistd.h>

namespace corvane::linux {

namespace {

/// Closes what was inherited from the watched process.
void keepOnly(int descriptor) {
    constexpr int input = 0;
    if (descriptor != input) {
        dup2(descriptor, input);
    }
    if (const int nowhere = open("/dev/null", O_RDWR | O_CLOEXEC); nowhere >= 0) {
        dup2(nowhere, STDOUT_FILENO);
        dup2(nowhere, STDERR_FILENO);
    }
    constexpr unsigned firstOther = STDERR_FILENO + 1;
    close_range(firstOther, ~0U, 0);
}

/// Signals that end a session or a terminal are meant for the watched process.
void outliveSession() {
    setsid();
    for (const int number : {SIGTERM, SIGINT, SIGHUP, SIGQUIT}) {
        std::signal(number, SIG_IGN);
    }
}

/// False when the watched process has ended without its destructor having written the byte.
bool awaitOrderlyEnd(int lifeline) {
    char byte = 0;
    ssize_t length = -1;
    do {
        length = read(lifeline, &byte, 1);
    } while (length < 0 && errno == EINTR);
    return length == 1;
}

[[noreturn]] void watch(int lifeline, pid_t watched, ButtonWatchdog::Release release) {
    prctl(PR_SET_NAME, "corvane-watch");
    keepOnly(lifeline);
    outliveSession();
    if (!awaitOrderlyEnd(STDIN_FILENO)) {
        release(watched);
    }
    std::_Exit(EXIT_SUCCESS);
}

} // namespace

ButtonWatchdog::ButtonWatchdog(Release release) {
    std::array<int, 2> ends{-1, -1};
    if (pipe2(ends.data(), O_CLOEXEC) != 0) {
        return;
    }
    const posix::FileDescriptor readEnd(ends[0]);
    lifeline_ = posix::FileDescriptor(ends[1]);
    const pid_t watched = getpid();
    if (fork() == 0) {
        watch(readEnd.get(), watched, release);
    }
}

ButtonWatchdog::~ButtonWatchdog() {
    constexpr char orderlyEnd = 1;
    [[maybe_unused]] const ssize_t written = write(lifeline_.get(), &orderlyEnd, 1);
}

} // namespace corvane::linux
