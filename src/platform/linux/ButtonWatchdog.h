#pragma once

#include "platform/posix/FileDescriptor.h"

#include <sys/types.h>

namespace corvane::linux {

/// A small process that waits for the end of this one and has the button released that this process
/// had pressed when it was killed or crashed. It ends with this process.
class ButtonWatchdog {
  public:
    /// Releases what the process `watched` had pressed; called in the small process.
    using Release = void (*)(pid_t watched);

    /// To be created while this process has one thread. When no process can be started, the next
    /// start of the program releases the button instead.
    explicit ButtonWatchdog(Release release);
    /// Reports an orderly end to the watchdog.
    ~ButtonWatchdog();

    ButtonWatchdog(const ButtonWatchdog &) = delete;
    ButtonWatchdog &operator=(const ButtonWatchdog &) = delete;

  private:
    posix::FileDescriptor lifeline_;
};

} // namespace corvane::linux
