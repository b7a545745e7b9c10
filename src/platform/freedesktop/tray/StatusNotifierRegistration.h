#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusServiceWatcher>
#include <QObject>
#include <QScopedPointer>
#include <QTimer>

#include <chrono>
#include <functional>
#include <memory>
#include <optional>

namespace corvane::freedesktop {

/// Whether a panel on the session bus shows status notifier items. Blocks until the panel replies,
/// for a few seconds at most.
bool hasStatusNotifierHost();

enum class RegistrationState {
    /// The panel shows the item.
    registered,
    /// There is no StatusNotifierWatcher, or it has no host to show items, or it refused the item.
    unavailable,
    /// There is a StatusNotifierWatcher that does not reply.
    unresponsive,
};

/// Keeps the connection's item registered with the StatusNotifierWatcher, the panel's registry of
/// items, across restarts of the panel. Main thread.
class StatusNotifierRegistration {
  public:
    struct Listener {
        /// The item is about to be registered; the panel reads it from now on.
        std::function<void()> willRegister;
        /// Called once soon after the start, then on every change of the state, and again with
        /// `registered` whenever the item has been registered with a restarted panel.
        std::function<void(RegistrationState state)> changed;
    };

    static constexpr std::chrono::milliseconds defaultInterval{3000};

    /// `interval` is the timeout of a call and the pause before a watcher that refused the item or
    /// did not reply is called again.
    StatusNotifierRegistration(QDBusConnection connection, Listener listener,
                               std::chrono::milliseconds interval = defaultInterval);

  private:
    void start();
    void registerItem();
    void call(const QDBusMessage &message,
              void (StatusNotifierRegistration::*handleReply)(const QDBusMessage &));
    void handleHostReply(const QDBusMessage &reply);
    void handleRegistrationReply(const QDBusMessage &reply);
    void finish(const QDBusMessage &reply, bool isRegistered);
    void setState(RegistrationState state);
    QString watcherOwner() const;

    QDBusConnection connection_;
    const Listener listener_;
    const std::chrono::milliseconds interval_;
    /// Merges the events of one event-loop iteration into one attempt. The context of every
    /// connection made here.
    QTimer attempt_;
    QTimer retry_;
    QDBusServiceWatcher ownerChanges_;
    /// The watcher that was called last, by the name of its connection. Calls go there and not to
    /// the well-known name, because Qt 6.8 no longer says who sent a reply.
    QString called_;
    /// The call in flight; replies to earlier calls are dropped.
    std::unique_ptr<QDBusPendingCallWatcher, QScopedPointerDeleteLater> pending_;
    std::optional<RegistrationState> state_;
};

} // namespace corvane::freedesktop
