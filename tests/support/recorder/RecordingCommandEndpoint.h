#pragma once

#include "platform/CommandEndpoint.h"
#include "support/OneThread.h"

#include <ostream>
#include <vector>

namespace corvane {

/// For the messages of failed tests.
void PrintTo(const CommandAnswer &answer, std::ostream *out);

} // namespace corvane

namespace corvane::testing {

/// The way in for commands, with a test on the other side. Main thread.
class RecordingCommandEndpoint : public platform::CommandEndpoint {
  public:
    void listen(Obey obey) override;
    void close(const std::function<void()> &sayGoodbye) override;

    bool isListening() const { return obey_ != nullptr; }

    /// Hands over a request; what it is answered is appended to `answers`. Fails the test when
    /// nobody listens.
    void send(const CommandRequest &request);

    /// The answers so far.
    std::vector<CommandAnswer> answers;

  private:
    const OneThread mainThread_{"the command endpoint"};
    Obey obey_;
};

} // namespace corvane::testing
