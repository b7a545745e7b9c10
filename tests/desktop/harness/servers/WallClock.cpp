#include "WallClock.h"

#include "platform/posix/FileDescriptor.h"

#include <cstdint>
#include <stdexcept>

#include <fcntl.h>
#include <unistd.h>

namespace corvane::desktop {

WallClock::WallClock(const VirtualDesktop &desktop) : file_(desktop.folder() / "wall-clock") {
    set({});
}

Environment WallClock::environment() const {
    return {{"LD_PRELOAD", CORVANE_WALL_CLOCK_LIBRARY}, {"CORVANE_WALL_CLOCK", file_}};
}

/// The program sees the file's own memory and must find the number whole.
void WallClock::set(std::chrono::seconds offset) const {
    constexpr mode_t attributes = 0600;
    const posix::FileDescriptor file(
        open(file_.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, attributes));
    const std::int64_t seconds = offset.count();
    if (pwrite(file.get(), &seconds, sizeof(seconds), 0) != sizeof(seconds)) {
        throw std::runtime_error("The wall clock cannot be set");
    }
}

} // namespace corvane::desktop
