#pragma once

#include <chrono>

#include <sys/types.h>

namespace corvane::bench {

/// What a process has used of the machine since it was started, the threads it has ended included.
struct ProcessUsage {
    std::chrono::nanoseconds processorTime{};
    /// How often its present threads have slept and been woken.
    long wakeUps = 0;

    static ProcessUsage of(pid_t process);
};

/// The processor time the calling thread has used.
double threadMilliseconds();

/// The memory no other process shares, in megabytes. Libraries count where nobody else happens to
/// use them.
double privateMegabytes(pid_t process);

/// The memory that holds what the process has written itself, in megabytes.
double writtenMegabytes(pid_t process);

} // namespace corvane::bench
