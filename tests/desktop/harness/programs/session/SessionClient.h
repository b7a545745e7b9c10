#pragma once

#include <X11/SM/SMlib.h>

#include <string>

namespace corvane::desktop {

/// A client of the session manager.
class SessionClient {
  public:
    explicit SessionClient(SmsConn connection) : connection_(connection) {}
    SessionClient(const SessionClient &) = delete;
    SessionClient &operator=(const SessionClient &) = delete;
    ~SessionClient() { SmsCleanUp(connection_); }

    /// Makes the session manager's answers to the program.
    SmsCallbacks callbacks();
    /// Which of them there are.
    static unsigned long callbackMask();

    IceConn transport() const { return SmsGetIceConnection(connection_); }

    /// Tells the program to save what it has, because the session ends or just in case.
    void askToSave(bool isShuttingDown);
    void tellToDie();

    /// The line that describes the client to a test.
    std::string description() const;

  private:
    void registerWith(const char *previousName);
    void note(const SmProp &property);

    SmsConn connection_;
    int saves_ = 0;
    /// When the session that is restored starts the program again, as the protocol counts.
    int restartStyle_ = SmRestartIfRunning;
};

} // namespace corvane::desktop
