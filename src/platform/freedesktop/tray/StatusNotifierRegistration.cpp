#include "platform/freedesktop/tray/StatusNotifierRegistration.h"

#include <QDBusConnectionInterface>
#include <QDBusReply>
#include <QDBusVariant>

#include <utility>

namespace corvane::freedesktop {

using namespace Qt::StringLiterals;

namespace {

const QString service = u"org.kde.StatusNotifierWatcher"_s;
const QString path = u"/StatusNotifierWatcher"_s;

QDBusMessage callOf(const QString &watcher, const QString &interface, const QString &method,
                    const QVariantList &arguments) {
    auto message = QDBusMessage::createMethodCall(watcher, path, interface, method);
    message.setArguments(arguments);
    return message;
}

QDBusMessage callForHost(const QString &watcher) {
    return callOf(watcher, u"org.freedesktop.DBus.Properties"_s, u"Get"_s,
                  {service, u"IsStatusNotifierHostRegistered"_s});
}

bool isReply(const QDBusMessage &message) { return message.type() == QDBusMessage::ReplyMessage; }

bool confirmsHost(const QDBusMessage &reply) {
    return isReply(reply) && reply.arguments().value(0).value<QDBusVariant>().variant().toBool();
}

} // namespace

bool hasStatusNotifierHost() {
    constexpr int timeout = static_cast<int>(StatusNotifierRegistration::defaultInterval.count());
    const auto bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"host-query"_s);
    auto call = callForHost(service);
    call.setAutoStartService(false);
    const auto reply = bus.call(call, QDBus::Block, timeout);
    QDBusConnection::disconnectFromBus(bus.name());
    return confirmsHost(reply);
}

StatusNotifierRegistration::StatusNotifierRegistration(QDBusConnection connection,
                                                       Listener listener,
                                                       std::chrono::milliseconds interval)
    : connection_(std::move(connection)),
      listener_(std::move(listener)),
      interval_(interval),
      ownerChanges_(service, connection_) {
    attempt_.setSingleShot(true);
    retry_.setSingleShot(true);
    QObject::connect(&attempt_, &QTimer::timeout, &attempt_, [this] { start(); });
    QObject::connect(&retry_, &QTimer::timeout, &attempt_, [this] { start(); });
    QObject::connect(&ownerChanges_, &QDBusServiceWatcher::serviceOwnerChanged, &attempt_,
                     [this] { attempt_.start(); });
    for (const auto &signal :
         {u"StatusNotifierHostRegistered"_s, u"StatusNotifierHostUnregistered"_s}) {
        connection_.connect(service, path, service, signal, &attempt_, SLOT(start()));
    }
    attempt_.start();
}

void StatusNotifierRegistration::start() {
    retry_.stop();
    called_ = connection_.isConnected() ? watcherOwner() : QString();
    if (called_.isEmpty()) {
        setState(RegistrationState::unavailable);
        return;
    }
    call(callForHost(called_), &StatusNotifierRegistration::handleHostReply);
}

void StatusNotifierRegistration::registerItem() {
    listener_.willRegister();
    call(callOf(called_, service, u"RegisterStatusNotifierItem"_s, {connection_.baseService()}),
         &StatusNotifierRegistration::handleRegistrationReply);
}

void StatusNotifierRegistration::call(
    const QDBusMessage &message,
    void (StatusNotifierRegistration::*handleReply)(const QDBusMessage &)) {
    const int timeout = static_cast<int>(interval_.count());
    // NOLINTNEXTLINE(cppcoreguidelines-owning-memory): the pointer's deleter is deleteLater
    pending_.reset(new QDBusPendingCallWatcher(connection_.asyncCall(message, timeout)));
    QObject::connect(pending_.get(), &QDBusPendingCallWatcher::finished, &attempt_,
                     [this, handleReply](const QDBusPendingCallWatcher *finished) {
                         if (finished == pending_.get()) {
                             (this->*handleReply)(finished->reply());
                         }
                     });
}

void StatusNotifierRegistration::handleHostReply(const QDBusMessage &reply) {
    if (confirmsHost(reply)) {
        registerItem();
    } else {
        finish(reply, false);
    }
}

void StatusNotifierRegistration::handleRegistrationReply(const QDBusMessage &reply) {
    finish(reply, isReply(reply));
}

/// A reply counts only if the present watcher sent it. A watcher that did not take the item is
/// called again: it may have been busy starting, and none announces that it is ready.
void StatusNotifierRegistration::finish(const QDBusMessage &reply, bool isRegistered) {
    const QString watcher = watcherOwner();
    if (watcher.isEmpty()) {
        setState(RegistrationState::unavailable);
        return;
    }
    const bool hasReplied = watcher == called_ && QDBusError(reply).type() != QDBusError::NoReply;
    if (hasReplied && isRegistered) {
        setState(RegistrationState::registered);
        return;
    }
    retry_.start(interval_);
    setState(hasReplied ? RegistrationState::unavailable : RegistrationState::unresponsive);
}

void StatusNotifierRegistration::setState(RegistrationState state) {
    if (std::exchange(state_, state) != state || state == RegistrationState::registered) {
        listener_.changed(state);
    }
}

/// Empty without a watcher. A call to the bus, because the signal of a change may still be in
/// flight.
QString StatusNotifierRegistration::watcherOwner() const {
    return connection_.interface()->serviceOwner(service);
}

} // namespace corvane::freedesktop
