#pragma once

#include "platform/CommandEndpoint.h"
#include "support/OneThread.h"

#include <ostream>
#include <vector>

namespace corvane {

/// For the messages of failed tests.
void PrintTo(const CommandReply &reply, std::ostream *out);

} // namespace corvane

namespace corvane::testing {

/// The way in for commands, with a test on the other side. Main thread.
class RecordingCommandEndpoint : public platform::CommandEndpoint {
  public:
    void listen(RequestHandler handler) override;
    void close(const std::function<void()> &announceEnd) override;

    bool isListening() const { return handler_ != nullptr; }

    /// Hands over a request; what it is answered is appended to `replies`. Fails the test when
    /// nobody listens.
    void send(const CommandRequest &request);

    /// The replies so far.
    std::vector<CommandReply> replies;

  private:
    const OneThread mainThread_{"the command endpoint"};
    RequestHandler handler_;
};

} // namespace corvane::testing
