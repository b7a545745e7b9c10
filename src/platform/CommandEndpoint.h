#pragma once

#include "presentation/CommandRequest.h"

#include <functional>

namespace corvane::platform {

/// Where other processes of the same user reach this program with commands. Main thread. A desktop
/// may offer several ways in, or none. Destroying it closes them all; answers given before still
/// arrive.
class CommandEndpoint {
  public:
    virtual ~CommandEndpoint() = default;

    /// Carries out a request and answers it once through `reply`: at once or later, on the main
    /// thread.
    using Obey = std::function<void(const CommandRequest &request, const CommandReply &reply)>;

    /// Passes on every whole request from now on, those of one process in their order. What another
    /// user sends, and what is no request, is turned away unheard. Called once. A way in that
    /// cannot be opened is logged.
    virtual void listen(Obey obey) = 0;

    /// Closes all ways in, then calls `sayGoodbye`, within which what was asked before can still be
    /// answered: who reads such an answer finds nobody running. Returns when the answers are on
    /// their way. Called once at most.
    virtual void close(const std::function<void()> &sayGoodbye) = 0;
};

} // namespace corvane::platform
