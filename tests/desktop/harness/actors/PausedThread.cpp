#include "PausedThread.h"

#include <cerrno>
#include <stdexcept>
#include <system_error>

#include <sys/ptrace.h>
#include <sys/wait.h>

namespace corvane::desktop {

PausedThread::PausedThread(pid_t thread) : thread_(thread) {
    if (ptrace(PTRACE_SEIZE, thread, nullptr, nullptr) != 0 ||
        ptrace(PTRACE_INTERRUPT, thread, nullptr, nullptr) != 0) {
        throw std::system_error(errno, std::generic_category(), "The thread cannot be paused");
    }
    int status = 0;
    if (waitpid(thread, &status, __WALL) != thread || !WIFSTOPPED(status)) {
        throw std::runtime_error("The thread did not stop");
    }
}

PausedThread::~PausedThread() { ptrace(PTRACE_DETACH, thread_, nullptr, nullptr); }

} // namespace corvane::desktop
