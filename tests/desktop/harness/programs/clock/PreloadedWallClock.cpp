// Loaded into a program before its libraries, sets that program's wall clock apart from the
// machine's, by as many seconds as a file says. All other clocks stay as they are.

#include <cstdint>
#include <cstdlib>
#include <ctime>

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/syscall.h>
#include <sys/time.h>
#include <unistd.h>

namespace {

/// The file stays mapped, so that a step costs the program nothing.
const std::int64_t *mapOffset() {
    const char *path = std::getenv("CORVANE_WALL_CLOCK"); // NOLINT(concurrency-mt-unsafe)
    const int file = path != nullptr ? open(path, O_RDONLY | O_CLOEXEC) : -1;
    void *memory = mmap(nullptr, sizeof(std::int64_t), PROT_READ, MAP_SHARED, file, 0);
    if (memory == MAP_FAILED) {
        std::abort();
    }
    close(file);
    return static_cast<const std::int64_t *>(memory);
}

std::int64_t offset() {
    static const std::int64_t *const seconds = mapOffset();
    return __atomic_load_n(seconds, __ATOMIC_RELAXED);
}

bool isWallClock(clockid_t clock) {
    return clock == CLOCK_REALTIME || clock == CLOCK_REALTIME_COARSE || clock == CLOCK_TAI;
}

} // namespace

extern "C" {

int clock_gettime(clockid_t clock, timespec *time) noexcept {
    const long result = syscall(SYS_clock_gettime, clock, time);
    if (result == 0 && isWallClock(clock)) {
        time->tv_sec += offset();
    }
    return static_cast<int>(result);
}

int gettimeofday(timeval *time, void * /*zone*/) noexcept {
    timespec now{};
    const int result = clock_gettime(CLOCK_REALTIME, &now);
    *time = {.tv_sec = now.tv_sec, .tv_usec = now.tv_nsec / 1000};
    return result;
}

std::time_t time(std::time_t *copy) noexcept {
    timespec now{};
    clock_gettime(CLOCK_REALTIME, &now);
    if (copy != nullptr) {
        *copy = now.tv_sec;
    }
    return now.tv_sec;
}

} // extern "C"
