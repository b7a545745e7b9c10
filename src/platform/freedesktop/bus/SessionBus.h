#pragma once

#include <QDBusConnection>
#include <QObject>
#include <QTimer>

#include <functional>
#include <string>

#include <sys/types.h>
#include <unistd.h>

namespace corvane::freedesktop {

/// The address of the session's message bus; empty where the session has none.
std::string sessionBusAddress();

/// Keeps every library of this process from launching a message bus where the session has none, as
/// libdbus would. Called before there are other threads.
void preventBusLaunch();

/// Lets this process survive a bus that goes while Qt asks it for the owner of a name: Qt then
/// waits for a reply that was never requested, for which libdbus would abort the process. Called
/// before there are other threads.
void surviveLostBuses();

/// A connection to the session's message bus that is made anew when the bus has gone and another
/// listens at the same address. Main thread.
class SessionBus : public QObject {
    Q_OBJECT

  public:
    /// Connects at once where there is a bus. `changed` is called when the connection is lost and
    /// when it has been made anew, which happens only with a bus that runs as `user`.
    explicit SessionBus(std::function<void()> changed, std::string address = sessionBusAddress(),
                        uid_t user = geteuid());
    ~SessionBus() override;
    SessionBus(const SessionBus &) = delete;
    SessionBus &operator=(const SessionBus &) = delete;

    /// The present connection; not connected while there is no bus.
    const QDBusConnection &connection() const { return connection_; }

  private:
    Q_SLOT void handleDisconnect();

    void connectToBus();
    void disconnectFromBus();
    void reconnect();
    bool isBusListening() const;

    const std::function<void()> changed_;
    const std::string address_;
    const uid_t user_;
    QDBusConnection connection_{QString()};
    QTimer reconnectTimer_;
};

} // namespace corvane::freedesktop
