#pragma once

#include "CommandInput.h"
#include "SessionClient.h"

#include <QSocketNotifier>

#include <memory>
#include <string>
#include <vector>

namespace corvane::desktop {

/// A session manager that reads commands from its input: "address", where programs find it;
/// "clients", those that belong to the session; "save" and "shutdown", which request them to save;
/// "die".
class SessionManagerProgram {
  public:
    SessionManagerProgram() = default;
    SessionManagerProgram(const SessionManagerProgram &) = delete;
    SessionManagerProgram &operator=(const SessionManagerProgram &) = delete;
    ~SessionManagerProgram();

    /// False where that is not possible.
    bool listen();

  private:
    bool carryOut(const std::vector<std::string> &fields);
    void accept(IceListenObj listener);
    void receive(IceConn connection);
    void drop(IceConn connection);

    CommandInput commands_{
        [this](const std::vector<std::string> &fields) { return carryOut(fields); }};
    int listenerCount_ = 0;
    IceListenObj *listeners_ = nullptr;
    std::vector<std::unique_ptr<QSocketNotifier>> notifiers_;
    std::vector<std::unique_ptr<SessionClient>> clients_;
};

} // namespace corvane::desktop
