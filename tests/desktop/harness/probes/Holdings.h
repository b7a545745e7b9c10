#pragma once

#include <sys/types.h>

namespace corvane::desktop {

/// What a process holds of the system at one moment.
struct Holdings {
    long memoryKilobytes = 0;
    long openFiles = 0;
    long threads = 0;
};

Holdings holdingsOf(pid_t process);

} // namespace corvane::desktop
