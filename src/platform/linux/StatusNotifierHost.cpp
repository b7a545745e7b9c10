#include "platform/linux/StatusNotifierHost.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>

#include <chrono>
#include <utility>

namespace corvane::x11 {

namespace {

const QString service = QStringLiteral("org.kde.StatusNotifierWatcher");
const QString path = QStringLiteral("/StatusNotifierWatcher");

/// What a panel that hangs may take before the other kind of tray is used.
constexpr std::chrono::milliseconds patience{3000};

/// Sends `call` and hands its end to `then`, unless `receiver` is gone by then.
template <typename Then>
void send(const QDBusConnection &connection, const QDBusMessage &call, QObject &receiver,
          Then then) {
    // NOLINTNEXTLINE(cppcoreguidelines-owning-memory): deletes itself when it has finished
    auto *pending = new QDBusPendingCallWatcher(
        connection.asyncCall(call, static_cast<int>(patience.count())), &receiver);
    QObject::connect(pending, &QDBusPendingCallWatcher::finished, &receiver, [then, pending] {
        pending->deleteLater();
        then(*pending);
    });
}

} // namespace

StatusNotifierHost::StatusNotifierHost(QDBusConnection connection,
                                       std::function<void(bool)> answered)
    : connection_(std::move(connection)),
      answered_(std::move(answered)),
      watcher_(service, connection_) {
    question_.setSingleShot(true);
    QObject::connect(&question_, &QTimer::timeout, &question_, [this] { ask(); });
    QObject::connect(&watcher_, &QDBusServiceWatcher::serviceOwnerChanged, &question_,
                     [this] { question_.start(); });
    for (const auto *event : {"StatusNotifierHostRegistered", "StatusNotifierHostUnregistered"}) {
        connection_.connect(service, path, service, QString::fromLatin1(event), &question_,
                            SLOT(start()));
    }
    question_.start();
}

void StatusNotifierHost::ask() {
    if (!connection_.isConnected()) {
        answered_(false);
        return;
    }
    auto call = QDBusMessage::createMethodCall(
        service, path, QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"));
    call << service << QStringLiteral("IsStatusNotifierHostRegistered");
    call.setAutoStartService(false);
    send(connection_, call, question_, [this](const QDBusPendingCall &answer) {
        const QDBusPendingReply<QDBusVariant> reply = answer;
        answered_(!reply.isError() && reply.value().variant().toBool());
    });
}

void StatusNotifierHost::registerItem() {
    auto call = QDBusMessage::createMethodCall(service, path, service,
                                               QStringLiteral("RegisterStatusNotifierItem"));
    call << connection_.baseService();
    call.setAutoStartService(false);
    send(connection_, call, question_, [this](const QDBusPendingCall &answer) {
        if (answer.isError()) {
            answered_(false);
        }
    });
}

} // namespace corvane::x11
