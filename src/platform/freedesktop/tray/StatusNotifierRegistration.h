#pragma once

#include "platform/freedesktop/bus/BusConnection.h"

#include <QTimer>

#include <array>
#include <chrono>
#include <functional>
#include <optional>
#include <string>

namespace corvane::freedesktop {

/// Whether a panel on the session bus shows status notifier items. Blocks until the panel replies,
/// for a few seconds at most.
bool hasStatusNotifierHost(const std::string &busAddress);

enum class RegistrationState {
    /// The panel shows the item.
    registered,
    /// There is no StatusNotifierWatcher, or it has no host to show items, or it refused the item.
    unavailable,
    /// There is a StatusNotifierWatcher that does not reply, or the bus itself does not.
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
    StatusNotifierRegistration(BusConnection &bus, Listener listener,
                               std::chrono::milliseconds interval = defaultInterval);

  private:
    void start();
    void registerItem();
    void call(const BusMessage &message,
              void (StatusNotifierRegistration::*handleReply)(BusMessage &));
    void handleHostReply(BusMessage &reply);
    void handleRegistrationReply(BusMessage &reply);
    void finish(const BusMessage &reply, bool isRegistered);
    /// Sets the state and starts again after the interval.
    void retryIn(RegistrationState state);
    void setState(RegistrationState state);
    std::optional<std::string> watcherOwner() const;

    BusConnection &bus_;
    const Listener listener_;
    const std::chrono::milliseconds interval_;
    /// Merges the events of one event-loop iteration into one attempt.
    QTimer attempt_;
    QTimer retry_;
    /// Another watcher, or a host that comes or goes.
    std::array<BusSlot, 3> watcherChanges_;
    /// The watcher that was called last, by the name of its connection.
    std::string called_;
    /// The call in flight; replies to earlier calls are dropped.
    BusSlot pending_;
    std::optional<RegistrationState> state_;
};

} // namespace corvane::freedesktop
