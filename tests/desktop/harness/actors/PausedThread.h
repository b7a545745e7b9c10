#pragma once

#include <sys/types.h>

namespace corvane::desktop {

/// Keeps one thread of a child process from going on, as if it were busy; the others go on.
class PausedThread {
  public:
    /// Returns when the thread stands still; throws when the system does not allow it.
    explicit PausedThread(pid_t thread);
    ~PausedThread();
    PausedThread(const PausedThread &) = delete;
    PausedThread &operator=(const PausedThread &) = delete;

  private:
    pid_t thread_;
};

} // namespace corvane::desktop
