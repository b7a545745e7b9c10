#include "platform/freedesktop/tray/StatusNotifierRegistration.h"

#include <QDBusConnectionInterface>
#include <QDBusReply>
#include <QDBusVariant>

#include <utility>

namespace corvane::freedesktop {

namespace {

const QString service = QStringLiteral("org.kde.StatusNotifierWatcher");
const QString path = QStringLiteral("/StatusNotifierWatcher");

QDBusMessage callOf(const QString &interface, const QString &method,
                    const QVariantList &arguments) {
    auto call = QDBusMessage::createMethodCall(service, path, interface, method);
    call.setArguments(arguments);
    call.setAutoStartService(false);
    return call;
}

bool isReply(const QDBusMessage &message) { return message.type() == QDBusMessage::ReplyMessage; }

} // namespace

StatusNotifierRegistration::StatusNotifierRegistration(QDBusConnection connection,
                                                       Listener listener,
                                                       std::chrono::milliseconds pace)
    : connection_(std::move(connection)),
      listener_(std::move(listener)),
      pace_(pace),
      watcher_(service, connection_) {
    question_.setSingleShot(true);
    repetition_.setSingleShot(true);
    QObject::connect(&question_, &QTimer::timeout, &question_, [this] { ask(); });
    QObject::connect(&repetition_, &QTimer::timeout, &question_, [this] { ask(); });
    QObject::connect(&watcher_, &QDBusServiceWatcher::serviceOwnerChanged, &question_,
                     [this] { question_.start(); });
    for (const auto *event : {"StatusNotifierHostRegistered", "StatusNotifierHostUnregistered"}) {
        connection_.connect(service, path, service, QString::fromLatin1(event), &question_,
                            SLOT(start()));
    }
    question_.start();
}

void StatusNotifierRegistration::ask() {
    repetition_.stop();
    if (!connection_.isConnected()) {
        announce(PanelAnswer::none);
        return;
    }
    send(callOf(QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"),
                {service, QStringLiteral("IsStatusNotifierHostRegistered")}),
         &StatusNotifierRegistration::hasHostAnswered);
}

void StatusNotifierRegistration::registerItem() {
    listener_.willRegister();
    send(callOf(service, QStringLiteral("RegisterStatusNotifierItem"), {connection_.baseService()}),
         &StatusNotifierRegistration::registered);
}

void StatusNotifierRegistration::send(
    const QDBusMessage &call, void (StatusNotifierRegistration::*then)(const QDBusMessage &)) {
    const int patience = static_cast<int>(pace_.count());
    // NOLINTNEXTLINE(cppcoreguidelines-owning-memory): the pointer deletes it in its own way
    pending_.reset(new QDBusPendingCallWatcher(connection_.asyncCall(call, patience)));
    QObject::connect(pending_.get(), &QDBusPendingCallWatcher::finished, &question_,
                     [this, then](const QDBusPendingCallWatcher *finished) {
                         if (finished == pending_.get()) {
                             (this->*then)(finished->reply());
                         }
                     });
}

void StatusNotifierRegistration::hasHostAnswered(const QDBusMessage &reply) {
    if (isReply(reply) && reply.arguments().value(0).value<QDBusVariant>().variant().toBool()) {
        registerItem();
    } else {
        conclude(reply, false);
    }
}

void StatusNotifierRegistration::registered(const QDBusMessage &reply) {
    conclude(reply, isReply(reply));
}

/// The answer of a panel that has gone meanwhile says nothing about the one that has come. A panel
/// that did not take the item may have been too busy, and need not say when it no longer is.
void StatusNotifierRegistration::conclude(const QDBusMessage &reply, bool isRegistered) {
    const QString panel = owner();
    if (panel.isEmpty()) {
        announce(PanelAnswer::none);
        return;
    }
    const bool hasAnswered = reply.service() == panel;
    if (hasAnswered && isRegistered) {
        announce(PanelAnswer::shown);
        return;
    }
    repetition_.start(pace_);
    announce(hasAnswered ? PanelAnswer::none : PanelAnswer::silent);
}

void StatusNotifierRegistration::announce(PanelAnswer answer) {
    if (std::exchange(announced_, answer) != answer || answer == PanelAnswer::shown) {
        listener_.answered(answer);
    }
}

/// The connection of the panel; empty when there is none. Asked of the bus, because news of a
/// change may still be on their way.
QString StatusNotifierRegistration::owner() const {
    return connection_.interface()->serviceOwner(service);
}

} // namespace corvane::freedesktop
