#pragma once

#include <QDBusConnection>
#include <QObject>
#include <QTimer>

#include <functional>
#include <string>

#include <sys/types.h>
#include <unistd.h>

namespace corvane::freedesktop {

/// Where the session's message bus is to be found; empty where the session names none.
std::string sessionBusAddress();

/// Whether programs of this session can talk by a bus. One that would first have to be started does
/// not count.
bool hasSessionBus();

/// A connection to the session's message bus that is made again where the bus has gone and another
/// listens in its place. Main thread.
class SessionBus : public QObject {
    Q_OBJECT

  public:
    /// Connects at once where there is a bus. `changed` is called when it is lost, and when another
    /// one has been found. Only a bus of `user` takes the place of one that is gone.
    explicit SessionBus(std::function<void()> changed, std::string address = sessionBusAddress(),
                        uid_t user = geteuid());
    ~SessionBus() override;
    SessionBus(const SessionBus &) = delete;
    SessionBus &operator=(const SessionBus &) = delete;

    /// The present one; not connected while there is no bus.
    const QDBusConnection &connection() const { return connection_; }

  private:
    Q_SLOT void lost();

    void connectNow();
    void disconnectNow();
    void lookForAnother();
    bool isAnotherListening() const;

    const std::function<void()> changed_;
    const std::string address_;
    const uid_t user_;
    QDBusConnection connection_{QString()};
    QTimer search_;
};

} // namespace corvane::freedesktop
