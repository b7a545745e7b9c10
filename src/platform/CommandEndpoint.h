#pragma once

#include "presentation/CommandRequest.h"

#include <functional>

namespace corvane::platform {

/// Where other processes of the same user reach this program with commands. Main thread. A desktop
/// may offer several ways in, or none. Destroying it closes them all; replies given before still
/// arrive.
class CommandEndpoint {
  public:
    virtual ~CommandEndpoint() = default;

    /// Handles a request and replies once through `sendReply`, at once or later, on the main
    /// thread.
    using RequestHandler =
        std::function<void(const CommandRequest &request, const SendReply &sendReply)>;

    /// Passes on every complete request from now on, those of one process in their order. Malformed
    /// requests and those of other users are dropped. Called once. A way in that cannot be opened
    /// is logged.
    virtual void listen(RequestHandler handler) = 0;

    /// Closes all ways in, then calls `announceEnd`, within which earlier requests can still be
    /// answered: a client that has read such a reply finds no program running. Returns when the
    /// replies are on their way. Called once at most.
    virtual void close(const std::function<void()> &announceEnd) = 0;
};

} // namespace corvane::platform
