#pragma once

#include "platform/wayland/connection/Connection.h"

#include <QObject>
#include <QSocketNotifier>

#include <functional>
#include <memory>

namespace corvane::wayland {

/// A connection whose events are handled in Qt's event loop, and whose requests are sent before the
/// loop sleeps. Main thread.
class Events {
  public:
    /// Calls `connectionLost` when the compositor has gone.
    Events(std::unique_ptr<Connection> connection, std::function<void()> connectionLost);
    ~Events();

    Events(const Events &) = delete;
    Events &operator=(const Events &) = delete;

    Connection &connection() { return *connection_; }

  private:
    void read();
    void beforeSleep();
    void checkConnection();

    const std::unique_ptr<Connection> connection_;
    std::function<void()> connectionLost_;
    QSocketNotifier readable_;
    QMetaObject::Connection aboutToBlock_;
};

} // namespace corvane::wayland
