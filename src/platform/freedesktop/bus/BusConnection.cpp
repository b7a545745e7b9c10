#include "platform/freedesktop/bus/BusConnection.h"

#include <algorithm>
#include <ctime>
#include <limits>
#include <systemd/sd-bus.h>
#include <utility>

#include <poll.h>
#include <sys/socket.h>

namespace corvane::freedesktop {

namespace {

using std::chrono::microseconds;

/// Of the clock that the library's timeouts are on.
microseconds monotonicNow() {
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    return std::chrono::duration_cast<microseconds>(std::chrono::seconds(now.tv_sec) +
                                                    std::chrono::nanoseconds(now.tv_nsec));
}

std::uint64_t countOf(microseconds time) { return static_cast<std::uint64_t>(time.count()); }

int passOn(sd_bus_message *message, void *handler, sd_bus_error * /*error*/) {
    BusMessage received(sd_bus_message_ref(message));
    (*static_cast<BusConnection::Handler *>(handler))(received);
    return 0;
}

} // namespace

BusMethod busMethod(const char *name) {
    return {"org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", name};
}

std::string signalRule(const SignalFilter &filter) {
    std::string rule = "type='signal'";
    for (const auto &[key, value] : {std::pair("sender", &filter.sender),
                                     {"path", &filter.path},
                                     {"interface", &filter.interface},
                                     {"member", &filter.name},
                                     {"arg0", &filter.firstArgument}}) {
        if (!value->empty()) {
            rule += std::string(",") + key + "='" + *value + "'";
        }
    }
    return rule;
}

std::string ownerChangeRule(const std::string &name) {
    return signalRule({.sender = "org.freedesktop.DBus",
                       .interface = "org.freedesktop.DBus",
                       .name = "NameOwnerChanged",
                       .firstArgument = name});
}

void Unreference::operator()(sd_bus *bus) const { sd_bus_close_unref(bus); }

void Unreference::operator()(sd_bus_slot *slot) const { sd_bus_slot_unref(slot); }

BusConnection::BusConnection(const std::string &address, Listener listener)
    : listener_(std::move(listener)) {
    sd_bus *bus = nullptr;
    sd_bus_new(&bus);
    bus_.reset(bus);
    timeout_.setSingleShot(true);
    QObject::connect(&timeout_, &QTimer::timeout, &timeout_, [this] { serve(); });
    connectedSignal_ =
        subscribe(signalRule({.sender = "org.freedesktop.DBus.Local", .name = "Connected"}),
                  [this](BusMessage &) {
                      if (listener_.connected) {
                          listener_.connected();
                      }
                  });
    const bool isStarted = !address.empty() && sd_bus_set_address(bus, address.c_str()) >= 0 &&
                           sd_bus_set_bus_client(bus, 1) >= 0 &&
                           sd_bus_set_connected_signal(bus, 1) >= 0 && sd_bus_start(bus) >= 0;
    if (!isStarted) {
        return;
    }
    readable_ = notifierFor(QSocketNotifier::Read);
    writable_ = notifierFor(QSocketNotifier::Write);
    update();
}

void BusConnection::DeleteLater::operator()(QSocketNotifier *notifier) const {
    notifier->setEnabled(false);
    notifier->disconnect();
    notifier->deleteLater();
}

BusConnection::Notifier BusConnection::notifierFor(QSocketNotifier::Type type) {
    Notifier notifier(new QSocketNotifier(sd_bus_get_fd(bus_.get()), type));
    QObject::connect(notifier.get(), &QSocketNotifier::activated, notifier.get(),
                     [this] { serve(); });
    return notifier;
}

bool BusConnection::isOpen() const { return sd_bus_is_open(bus_.get()) > 0; }

std::string BusConnection::name() const {
    const char *name = nullptr;
    return isOpen() && sd_bus_get_unique_name(bus_.get(), &name) >= 0 ? name : "";
}

std::optional<uid_t> BusConnection::busUser() const {
    ucred peer{};
    socklen_t size = sizeof(peer);
    const bool isKnown = readable_ && getsockopt(static_cast<int>(readable_->socket()), SOL_SOCKET,
                                                 SO_PEERCRED, &peer, &size) == 0;
    return isKnown ? std::optional(peer.uid) : std::nullopt;
}

void BusConnection::serve() {
    int result = 1;
    while (result > 0) {
        result = sd_bus_process(bus_.get(), nullptr);
    }
    if (result == 0) {
        update();
        return;
    }
    readable_.reset();
    writable_.reset();
    timeout_.stop();
    if (const auto lost = listener_.lost) {
        lost();
    }
}

void BusConnection::update() {
    if (!readable_) {
        return;
    }
    const int events = sd_bus_get_events(bus_.get());
    writable_->setEnabled(events > 0 && (events & POLLOUT) != 0);
    std::uint64_t deadline = 0;
    const int result = sd_bus_get_timeout(bus_.get(), &deadline);
    if (result <= 0 || deadline == std::numeric_limits<std::uint64_t>::max()) {
        timeout_.stop();
        return;
    }
    const auto left = std::max(microseconds(0), microseconds(deadline) - monotonicNow());
    timeout_.start(std::chrono::ceil<std::chrono::milliseconds>(left));
}

BusSlot BusConnection::addObject(const std::string &path, const char *interface,
                                 const sd_bus_vtable *table, void *object) {
    sd_bus_slot *slot = nullptr;
    sd_bus_add_object_vtable(bus_.get(), &slot, path.c_str(), interface, table, object);
    return BusSlot(slot);
}

/// The library keeps the handler and destroys it with the slot.
BusSlot BusConnection::slotFor(Handler handle,
                               const std::function<int(sd_bus_slot **, void *)> &add) {
    auto kept = std::make_unique<Handler>(std::move(handle));
    sd_bus_slot *slot = nullptr;
    if (add(&slot, kept.get()) < 0) {
        return nullptr;
    }
    sd_bus_slot_set_destroy_callback(slot, [](void *handler) {
        const std::unique_ptr<Handler> owner(static_cast<Handler *>(handler));
    });
    kept.release(); // NOLINT(bugprone-unused-return-value): the slot owns it
    update();
    return BusSlot(slot);
}

BusSlot BusConnection::subscribe(const std::string &rule, Handler handle) {
    return slotFor(std::move(handle), [&](sd_bus_slot **slot, void *handler) {
        return sd_bus_add_match_async(bus_.get(), slot, rule.c_str(), passOn, nullptr, handler);
    });
}

BusMessage BusConnection::newSignal(const std::string &path, const char *interface,
                                    const char *name) const {
    sd_bus_message *message = nullptr;
    const int result =
        sd_bus_message_new_signal(bus_.get(), &message, path.c_str(), interface, name);
    return BusMessage(message, result);
}

BusMessage BusConnection::newCall(const BusMethod &method) const {
    sd_bus_message *message = nullptr;
    int result = sd_bus_message_new_method_call(bus_.get(), &message, method.service, method.path,
                                                method.interface, method.name);
    if (result >= 0) {
        result = sd_bus_message_set_auto_start(message, 0);
    }
    return BusMessage(message, result);
}

void BusConnection::send(const BusMessage &message) {
    if (!message.hasFailed()) {
        sd_bus_send(bus_.get(), message.get(), nullptr);
        update();
    }
}

BusSlot BusConnection::call(const BusMessage &message, std::chrono::milliseconds timeout,
                            Handler handleReply) {
    if (message.hasFailed()) {
        return nullptr;
    }
    return slotFor(std::move(handleReply), [&](sd_bus_slot **slot, void *handler) {
        return sd_bus_call_async(bus_.get(), slot, message.get(), passOn, handler,
                                 countOf(timeout));
    });
}

BusMessage BusConnection::callAndWait(const BusMessage &message,
                                      std::chrono::milliseconds timeout) {
    sd_bus_message *reply = nullptr;
    const int result = message.hasFailed() ? message.result()
                                           : sd_bus_call(bus_.get(), message.get(),
                                                         countOf(timeout), nullptr, &reply);
    update();
    return BusMessage(reply, result);
}

} // namespace corvane::freedesktop
