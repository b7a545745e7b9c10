#pragma once

#include <QDBusConnection>
#include <QDBusServiceWatcher>
#include <QObject>
#include <QTimer>

#include <functional>

namespace corvane::x11 {

/// Whether a panel shows status notifier items, now and whenever that changes. Main thread.
class StatusNotifierHost {
  public:
    /// `answered` is called once soon after the start and then for every panel that comes or goes,
    /// with whether there is one. A panel that restarts is announced again.
    StatusNotifierHost(QDBusConnection connection, std::function<void(bool isPresent)> answered);

    /// Asks the panel to show the connection's item; answers false when it will not.
    void registerItem();

  private:
    void ask();

    QDBusConnection connection_;
    std::function<void(bool)> answered_;
    /// Collects what happens in one turn of the event loop, and is the receiver of every reply.
    QTimer question_;
    QDBusServiceWatcher watcher_;
};

} // namespace corvane::x11
