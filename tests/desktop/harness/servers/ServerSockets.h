#pragma once

#include "platform/posix/FileDescriptor.h"

#include <functional>
#include <vector>

#include <sys/types.h>

namespace corvane::desktop {

/// Another program's connections to its X server, taken hold of from outside.
class ServerSockets {
  public:
    /// Those the program has at this moment. Throws when the system does not allow it.
    explicit ServerSockets(pid_t program);

    /// Cuts the one connection on which the server sends the program what `happening` does;
    /// false where there is not exactly one. The program stands still meanwhile.
    bool cutTheOneThatReceives(const std::function<void()> &happening) const;

  private:
    std::vector<int> unreadBytes() const;

    const pid_t program_;
    std::vector<posix::FileDescriptor> sockets_;
};

} // namespace corvane::desktop
