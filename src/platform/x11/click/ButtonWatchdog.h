#pragma once

#include "platform/posix/FileDescriptor.h"

namespace corvane::x11 {

/// A small process that waits for the end of this one. Where that was not an orderly end, whether
/// by a signal nothing can catch, a crash or a lost exception, it releases the button this process
/// had pressed. It ends with this process.
class ButtonWatchdog {
  public:
    /// While this process has one thread only. Without a process to be had there is no guard, and
    /// the next start of the program does its work.
    ButtonWatchdog();
    /// The orderly end.
    ~ButtonWatchdog();

    ButtonWatchdog(const ButtonWatchdog &) = delete;
    ButtonWatchdog &operator=(const ButtonWatchdog &) = delete;

  private:
    posix::FileDescriptor lifeline_;
};

} // namespace corvane::x11
