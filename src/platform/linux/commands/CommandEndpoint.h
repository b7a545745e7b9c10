#pragma once

#include "platform/CommandEndpoint.h"
#include "platform/posix/CommandSocket.h"

#include <memory>

namespace corvane::platform {
class MainQueue;
}

namespace corvane::linux {

class BusCommands;

/// The session bus where there is one, and always a socket in the user's runtime folder, for those
/// who cannot reach the bus.
class CommandEndpoint : public platform::CommandEndpoint {
  public:
    /// `first` is obeyed before all others, and its refusal printed; none where there is nothing to
    /// obey. The main queue outlives the endpoint.
    CommandEndpoint(platform::MainQueue &mainQueue, CommandRequest first);
    ~CommandEndpoint() override;
    CommandEndpoint(const CommandEndpoint &) = delete;
    CommandEndpoint &operator=(const CommandEndpoint &) = delete;

    void listen(Obey obey) override;
    void close(const std::function<void()> &sayGoodbye) override;

  private:
    platform::MainQueue &mainQueue_;
    const CommandRequest first_;
    std::unique_ptr<BusCommands> bus_;
    std::unique_ptr<posix::CommandSocket> socket_;
};

} // namespace corvane::linux
