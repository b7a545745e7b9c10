#pragma once

#include <vector>

#include <sys/types.h>

namespace corvane::desktop {

/// The processes that process has started and that have not ended.
std::vector<pid_t> childrenOf(pid_t parent);

/// Whether the process exists and has not ended.
bool isAlive(pid_t process);

/// Whether every thread of the process is stopped by a signal.
bool isStopped(pid_t process);

/// What a process holds of the system at one moment.
struct Holdings {
    long memoryKilobytes = 0;
    long openFiles = 0;
    long threads = 0;
};

Holdings holdingsOf(pid_t process);

} // namespace corvane::desktop
