#pragma once

#include "platform/CommandEndpoint.h"
#include "platform/posix/CommandSocket.h"

#include <memory>
#include <optional>

namespace corvane::platform {
class MainQueue;
}

namespace corvane::linux {

/// Takes commands at a socket in the user's runtime folder. Main thread.
class CommandEndpoint : public platform::CommandEndpoint {
  public:
    /// `first` is carried out before all others, and its refusal printed; nothing where it is
    /// empty. The main queue outlives the endpoint.
    CommandEndpoint(platform::MainQueue &mainQueue, CommandRequest first);

    void listen(RequestHandler handler) override;
    void close(const std::function<void()> &announceEnd) override;

  private:
    platform::MainQueue &mainQueue_;
    const CommandRequest first_;
    std::unique_ptr<posix::CommandSocket> socket_;
};

/// Sends the request to the running Corvane of this user, on the display that DISPLAY names where
/// it names one, and waits for the reply. Nothing when none is running. Any thread.
std::optional<CommandReply> callRunning(const CommandRequest &request);

} // namespace corvane::linux
