#pragma once

#include "platform/freedesktop/bus/BusConnection.h"

#include <QTimer>

#include <functional>
#include <memory>
#include <string>

#include <sys/types.h>
#include <unistd.h>

namespace corvane::freedesktop {

/// The address of the session's message bus; empty where the session has none.
std::string sessionBusAddress();

/// The address of the system's message bus.
std::string systemBusAddress();

/// Keeps every library of this process from launching a message bus where the session has none, as
/// libdbus would for Qt. Called before there are other threads.
void preventBusLaunch();

/// Lets this process survive a bus that goes while Qt asks it for the owner of a name: Qt then
/// waits for a reply that was never requested, for which libdbus would abort the process. Called
/// before there are other threads.
void surviveLostBuses();

/// A connection to the session's message bus that is made anew when the bus has gone and another
/// listens at the same address. Main thread.
class SessionBus {
  public:
    /// Connects where there is a bus. `changed` is called when the connection is lost and when it
    /// has been made anew, which happens only with a bus that runs as `user`.
    explicit SessionBus(std::function<void()> changed, std::string address = sessionBusAddress(),
                        uid_t user = geteuid());
    SessionBus(const SessionBus &) = delete;
    SessionBus &operator=(const SessionBus &) = delete;
    ~SessionBus() = default;

    /// The present connection, until `changed` has been called; not open while there is no bus.
    BusConnection &connection() { return *connection_; }

  private:
    void handleLoss();
    /// Whoever listens without accepting the connection is given up at the next attempt.
    void reconnect();
    void takeOver();

    const std::function<void()> changed_;
    const std::string address_;
    const uid_t user_;
    std::unique_ptr<BusConnection> connection_;
    /// One that the bus has not accepted yet.
    std::unique_ptr<BusConnection> attempt_;
    QTimer reconnectTimer_;
};

} // namespace corvane::freedesktop
