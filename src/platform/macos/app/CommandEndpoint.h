#pragma once

#include "platform/CommandEndpoint.h"
#include "platform/posix/CommandSocket.h"

#import <Foundation/Foundation.h>

#include <memory>
#include <optional>

NS_ASSUME_NONNULL_BEGIN

namespace corvane::platform {
class MainQueue;
}

namespace corvane::macos {

/// Commands come as URLs of the program's own scheme, which get no reply but a line in the log
/// when they are refused, and from the command line through a socket in `commandFolder`.
class CommandEndpoint : public platform::CommandEndpoint {
  public:
    /// The main queue outlives the endpoint.
    explicit CommandEndpoint(platform::MainQueue &mainQueue) : mainQueue_(mainQueue) {}
    ~CommandEndpoint() override;
    CommandEndpoint(const CommandEndpoint &) = delete;
    CommandEndpoint &operator=(const CommandEndpoint &) = delete;

    void listen(RequestHandler handler) override;
    void close(const std::function<void()> &announceEnd) override;

  private:
    platform::MainQueue &mainQueue_;
    std::unique_ptr<posix::CommandSocket> socket_;
};

/// Hands the request to the running Corvane of this user and waits for the reply. Nothing when
/// none is running.
std::optional<CommandReply> callRunning(const CommandRequest &request);

} // namespace corvane::macos

NS_ASSUME_NONNULL_END
