#pragma once

#include "platform/posix/FileDescriptor.h"

namespace corvane::x11 {

/// A small process that waits for the end of this one and releases the button that this process had
/// pressed when it was killed or crashed. It ends with this process.
class ButtonWatchdog {
  public:
    /// To be created while this process has one thread. When no process can be started, the next
    /// start of the program releases the button instead.
    ButtonWatchdog();
    /// Reports an orderly end to the watchdog.
    ~ButtonWatchdog();

    ButtonWatchdog(const ButtonWatchdog &) = delete;
    ButtonWatchdog &operator=(const ButtonWatchdog &) = delete;

  private:
    posix::FileDescriptor lifeline_;
};

} // namespace corvane::x11
