#include "platform/freedesktop/tray/StatusNotifierRegistration.h"

#include <cerrno>
#include <utility>

namespace corvane::freedesktop {

namespace {

constexpr const char *service = "org.kde.StatusNotifierWatcher";
constexpr const char *path = "/StatusNotifierWatcher";

BusMessage callForHost(const BusConnection &bus, const char *watcher) {
    BusMessage call = bus.newCall({watcher, path, "org.freedesktop.DBus.Properties", "Get"});
    call.write(service);
    call.write("IsStatusNotifierHostRegistered");
    return call;
}

bool confirmsHost(BusMessage &reply) {
    bool isRegistered = false;
    if (!reply.isError() && reply.hasSignature("v")) {
        reply.readVariant("b", [&] { isRegistered = reply.readBool(); });
    }
    return isRegistered;
}

} // namespace

bool hasStatusNotifierHost(const std::string &busAddress) {
    BusConnection bus(busAddress, {});
    BusMessage reply =
        bus.callAndWait(callForHost(bus, service), StatusNotifierRegistration::defaultInterval);
    return confirmsHost(reply);
}

StatusNotifierRegistration::StatusNotifierRegistration(BusConnection &bus, Listener listener,
                                                       std::chrono::milliseconds interval)
    : bus_(bus),
      listener_(std::move(listener)),
      interval_(interval) {
    attempt_.setSingleShot(true);
    retry_.setSingleShot(true);
    for (QTimer *timer : {&attempt_, &retry_}) {
        QObject::connect(timer, &QTimer::timeout, timer, [this] { start(); });
    }
    const auto tryAgain = [this](BusMessage &) { attempt_.start(); };
    watcherChanges_ = {
        bus_.subscribe(ownerChangeRule(service), tryAgain),
        bus_.subscribe(
            signalRule({.sender = service, .path = path, .name = "StatusNotifierHostRegistered"}),
            tryAgain),
        bus_.subscribe(
            signalRule({.sender = service, .path = path, .name = "StatusNotifierHostUnregistered"}),
            tryAgain)};
    attempt_.start();
}

void StatusNotifierRegistration::start() {
    retry_.stop();
    const auto watcher = watcherOwner();
    if (!watcher) {
        retryIn(RegistrationState::unresponsive);
        return;
    }
    if (watcher->empty()) {
        setState(RegistrationState::unavailable);
        return;
    }
    called_ = *watcher;
    call(callForHost(bus_, called_.c_str()), &StatusNotifierRegistration::handleHostReply);
}

void StatusNotifierRegistration::registerItem() {
    listener_.willRegister();
    BusMessage request =
        bus_.newCall({called_.c_str(), path, service, "RegisterStatusNotifierItem"});
    request.write(bus_.name());
    call(request, &StatusNotifierRegistration::handleRegistrationReply);
}

void StatusNotifierRegistration::call(
    const BusMessage &message, void (StatusNotifierRegistration::*handleReply)(BusMessage &)) {
    pending_ = bus_.call(message, interval_,
                         [this, handleReply](BusMessage &reply) { (this->*handleReply)(reply); });
}

void StatusNotifierRegistration::handleHostReply(BusMessage &reply) {
    if (confirmsHost(reply)) {
        registerItem();
    } else {
        finish(reply, false);
    }
}

void StatusNotifierRegistration::handleRegistrationReply(BusMessage &reply) {
    finish(reply, !reply.isError());
}

/// A reply counts only if the present watcher sent it. A watcher that did not take the item is
/// called again: it may have been busy starting, and none announces that it is ready.
void StatusNotifierRegistration::finish(const BusMessage &reply, bool isRegistered) {
    const auto watcher = watcherOwner();
    if (watcher && watcher->empty()) {
        setState(RegistrationState::unavailable);
        return;
    }
    const bool hasReplied = watcher == called_ && !reply.isError(BusConnection::noReply);
    if (hasReplied && isRegistered) {
        setState(RegistrationState::registered);
        return;
    }
    retryIn(hasReplied ? RegistrationState::unavailable : RegistrationState::unresponsive);
}

void StatusNotifierRegistration::retryIn(RegistrationState state) {
    retry_.start(interval_);
    setState(state);
}

void StatusNotifierRegistration::setState(RegistrationState state) {
    if (std::exchange(state_, state) != state || state == RegistrationState::registered) {
        listener_.changed(state);
    }
}

/// Empty without a watcher, nothing where the bus does not reply in time. A call to the bus,
/// because the signal of a change may still be in flight.
std::optional<std::string> StatusNotifierRegistration::watcherOwner() const {
    BusMessage call = bus_.newCall(busMethod("GetNameOwner"));
    call.write(service);
    BusMessage reply = bus_.callAndWait(call, interval_);
    if (reply.result() == -ETIMEDOUT) {
        return std::nullopt;
    }
    return reply.hasSignature("s") && !reply.isError() ? reply.readText() : std::string();
}

} // namespace corvane::freedesktop
