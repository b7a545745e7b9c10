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

/// What has become of showing the item on the desktop's panel.
enum class PanelAnswer {
    shown,
    /// There is no panel, or it shows no status notifier items.
    none,
    /// There is a panel that does not answer.
    silent,
};

/// Keeps the connection's item registered with the panel, whichever that is at the moment. Main
/// thread.
class StatusNotifierRegistration {
  public:
    struct Listener {
        /// The item is about to be registered; the panel reads it from now on.
        std::function<void()> willRegister;
        /// Called once soon after the start and then whenever the answer is another one. A panel
        /// that restarts is announced again.
        std::function<void(PanelAnswer answer)> answered;
    };

    /// What a panel may take for an answer, and how long one that did not take the item is left
    /// alone.
    static constexpr std::chrono::milliseconds usualPace{3000};

    StatusNotifierRegistration(QDBusConnection connection, Listener listener,
                               std::chrono::milliseconds pace = usualPace);

  private:
    void ask();
    void registerItem();
    void send(const QDBusMessage &call,
              void (StatusNotifierRegistration::*then)(const QDBusMessage &));
    void hasHostAnswered(const QDBusMessage &reply);
    void registered(const QDBusMessage &reply);
    void conclude(const QDBusMessage &reply, bool isRegistered);
    void announce(PanelAnswer answer);
    QString owner() const;

    QDBusConnection connection_;
    const Listener listener_;
    const std::chrono::milliseconds pace_;
    /// Collects what happens in one turn of the event loop, and is the receiver of every reply.
    QTimer question_;
    /// Runs while a panel has not taken the item.
    QTimer repetition_;
    QDBusServiceWatcher watcher_;
    /// Answers to questions before this one count no more.
    std::unique_ptr<QDBusPendingCallWatcher, QScopedPointerDeleteLater> pending_;
    std::optional<PanelAnswer> announced_;
};

} // namespace corvane::freedesktop
