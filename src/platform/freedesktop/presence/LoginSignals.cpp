#include "platform/freedesktop/presence/LoginSignals.h"

#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

#include <utility>

#include <unistd.h>

namespace corvane::freedesktop {

namespace {

const QString service = QStringLiteral("org.freedesktop.login1");
const QString managerPath = QStringLiteral("/org/freedesktop/login1");
const QString managerInterface = QStringLiteral("org.freedesktop.login1.Manager");
const QString sessionInterface = QStringLiteral("org.freedesktop.login1.Session");

/// A call for the object path of this program's session. Only a process inside the session's own
/// control group can be looked up by its number; a user service has the variable instead.
QDBusMessage sessionRequest() {
    const QString session = qEnvironmentVariable("XDG_SESSION_ID");
    auto request = QDBusMessage::createMethodCall(
        service, managerPath, managerInterface,
        session.isEmpty() ? QStringLiteral("GetSessionByPID") : QStringLiteral("GetSession"));
    request << (session.isEmpty() ? QVariant::fromValue(static_cast<uint>(getpid()))
                                  : QVariant(session));
    request.setAutoStartService(false);
    return request;
}

} // namespace

LoginSignals::LoginSignals(QDBusConnection bus, Callbacks callbacks)
    : bus_(std::move(bus)),
      callbacks_(std::move(callbacks)) {
    if (bus_.isConnected()) {
        findSession();
    }
}

void LoginSignals::findSession() {
    // NOLINTNEXTLINE(cppcoreguidelines-owning-memory): deletes itself when it has finished
    auto *pending = new QDBusPendingCallWatcher(bus_.asyncCall(sessionRequest()), this);
    connect(pending, &QDBusPendingCallWatcher::finished, this, [this, pending] {
        pending->deleteLater();
        const QDBusPendingReply<QDBusObjectPath> session = *pending;
        if (!session.isError()) {
            watchSession(session.value().path());
        }
    });
}

void LoginSignals::watchSession(const QString &path) {
    bus_.connect(service, path, sessionInterface, QStringLiteral("Lock"), this, SLOT(locked()));
    bus_.connect(service, path, sessionInterface, QStringLiteral("Unlock"), this, SLOT(unlocked()));
    bus_.connect(service, path, QStringLiteral("org.freedesktop.DBus.Properties"),
                 QStringLiteral("PropertiesChanged"), this,
                 SLOT(propertiesChanged(QString, QVariantMap, QStringList)));
}

void LoginSignals::locked() { callbacks_.lockChanged(true); }

void LoginSignals::unlocked() { callbacks_.lockChanged(false); }

void LoginSignals::propertiesChanged(const QString &interface, const QVariantMap &changed,
                                     const QStringList & /*invalidated*/) {
    if (interface != sessionInterface) {
        return;
    }
    if (const auto hint = changed.constFind(QStringLiteral("LockedHint")); hint != changed.cend()) {
        callbacks_.lockChanged(hint->toBool());
    }
    if (const auto active = changed.constFind(QStringLiteral("Active")); active != changed.cend()) {
        callbacks_.activeChanged(active->toBool());
    }
}

} // namespace corvane::freedesktop
