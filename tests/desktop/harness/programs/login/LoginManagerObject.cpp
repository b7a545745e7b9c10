#include "LoginManagerObject.h"

#include <QDBusMessage>
#include <QDBusObjectPath>

namespace corvane::desktop {

namespace {

const QString service = QStringLiteral("org.freedesktop.login1");
const QString managerPath = QStringLiteral("/org/freedesktop/login1");
const QString sessionPath = QStringLiteral("/org/freedesktop/login1/session/_31");
const QString sessionInterface = QStringLiteral("org.freedesktop.login1.Session");

} // namespace

bool LoginManagerObject::appear() {
    return bus_.registerVirtualObject(managerPath, this) && bus_.registerService(service);
}

bool LoginManagerObject::sendLock(const QString &name) {
    return bus_.send(QDBusMessage::createSignal(sessionPath, sessionInterface, name));
}

bool LoginManagerObject::sendActive(bool isActive) {
    auto signal =
        QDBusMessage::createSignal(sessionPath, QStringLiteral("org.freedesktop.DBus.Properties"),
                                   QStringLiteral("PropertiesChanged"));
    signal << sessionInterface << QVariantMap{{QStringLiteral("Active"), isActive}}
           << QStringList();
    return bus_.send(signal);
}

bool LoginManagerObject::sendSleep() {
    auto signal =
        QDBusMessage::createSignal(managerPath, QStringLiteral("org.freedesktop.login1.Manager"),
                                   QStringLiteral("PrepareForSleep"));
    signal << true;
    return bus_.send(signal);
}

QString LoginManagerObject::introspect(const QString & /*path*/) const { return {}; }

bool LoginManagerObject::handleMessage(const QDBusMessage &message,
                                       const QDBusConnection &connection) {
    if (!message.member().startsWith(QLatin1String("GetSession"))) {
        return false;
    }
    ++sessionRequests_;
    return connection.send(message.createReply(QVariant::fromValue(QDBusObjectPath(sessionPath))));
}

} // namespace corvane::desktop
