#pragma once

#include "platform/freedesktop/bus/BusMessage.h"

#include <QSocketNotifier>
#include <QTimer>

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include <sys/types.h>

struct sd_bus;
struct sd_bus_slot;
struct sd_bus_vtable;

namespace corvane::freedesktop {

struct Unreference {
    void operator()(sd_bus *bus) const;
    void operator()(sd_bus_slot *slot) const;
};

/// What is registered with a connection: an object, a subscription to signals, or a call whose
/// reply is awaited. Its end unregisters it.
using BusSlot = std::unique_ptr<sd_bus_slot, Unreference>;

/// A method of an object on the bus.
struct BusMethod {
    const char *service;
    const char *path;
    const char *interface;
    const char *name;
};

/// A method of the bus itself.
BusMethod busMethod(const char *name);

/// Which signals are received; what is empty does not restrict them.
struct SignalFilter {
    std::string sender{};
    std::string path{};
    std::string interface{};
    std::string name{};
    std::string firstArgument{};
};

/// The filter as a match rule of D-Bus.
std::string signalRule(const SignalFilter &filter);

/// For the signal that a name on the bus has another owner, or none.
std::string ownerChangeRule(const std::string &name);

/// A connection to a message bus, served by Qt's event loop. It connects in the background; what is
/// sent before is queued. Main thread.
class BusConnection {
  public:
    struct Listener {
        /// The bus has accepted the connection.
        std::function<void()> connected;
        /// The bus has gone or refused; nothing else is called afterwards. The connection may be
        /// destroyed in this call.
        std::function<void()> lost;
    };
    using Handler = std::function<void(BusMessage &)>;

    /// A connection to nowhere: what is registered and sent has no effect.
    BusConnection() : BusConnection(std::string(), {}) {}
    BusConnection(const std::string &address, Listener listener);
    BusConnection(const BusConnection &) = delete;
    BusConnection &operator=(const BusConnection &) = delete;
    ~BusConnection() = default;

    /// Whether it is connected or may still be.
    bool isOpen() const;
    /// Its name on the bus, by which other programs identify it; empty without a bus.
    std::string name() const;
    /// The user the bus runs as; nothing without a bus.
    std::optional<uid_t> busUser() const;

    /// Exports an object, which outlives the slot, by a table of the library.
    BusSlot addObject(const std::string &path, const char *interface, const sd_bus_vtable *table,
                      void *object);
    /// Subscribes to the signals that match a rule of D-Bus.
    BusSlot subscribe(const std::string &rule, Handler handle);

    BusMessage newSignal(const std::string &path, const char *interface, const char *name) const;
    /// A call that starts no program to handle it.
    BusMessage newCall(const BusMethod &method) const;
    void send(const BusMessage &message);
    /// `handleReply` is called once: with the reply, an error or, after the timeout, the error
    /// `noReply`. Never where the slot is empty or has ended.
    BusSlot call(const BusMessage &message, std::chrono::milliseconds timeout, Handler handleReply);
    /// Waits for the reply; a failed message in place of an error.
    BusMessage callAndWait(const BusMessage &message, std::chrono::milliseconds timeout);

    static constexpr const char *noReply = "org.freedesktop.DBus.Error.NoReply";

  private:
    /// Ends a notifier that may be calling at the moment.
    struct DeleteLater {
        void operator()(QSocketNotifier *notifier) const;
    };
    using Notifier = std::unique_ptr<QSocketNotifier, DeleteLater>;

    Notifier notifierFor(QSocketNotifier::Type type);
    BusSlot slotFor(Handler handle, const std::function<int(sd_bus_slot **, void *)> &add);
    void serve();
    /// Sets what to wait for: the socket, and the timeouts of calls.
    void update();

    const Listener listener_;
    std::unique_ptr<sd_bus, Unreference> bus_;
    Notifier readable_;
    Notifier writable_;
    QTimer timeout_;
    BusSlot connectedSignal_;
};

} // namespace corvane::freedesktop
