#include "platform/wayland/kwin/Bus.h"

#include <QDBusConnectionInterface>

namespace corvane::wayland::kwin {

using namespace Qt::StringLiterals;

QDBusConnection sessionBus() {
    return QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"kwin"_s);
}

bool isRunning() {
    const auto *bus = sessionBus().interface();
    return bus != nullptr && bus->isServiceRegistered(u"org.kde.KWin"_s).value();
}

QDBusMessage RemoteObject::message(const QString &method, const QVariantList &arguments) const {
    auto message = QDBusMessage::createMethodCall(service, path, interface, method);
    message.setArguments(arguments);
    // Nothing is started by being called.
    message.setAutoStartService(false);
    return message;
}

QDBusMessage RemoteObject::call(const QString &method, const QVariantList &arguments) const {
    constexpr int timeoutMilliseconds = 2000;
    return sessionBus().call(message(method, arguments), QDBus::Block, timeoutMilliseconds);
}

void RemoteObject::send(const QString &method, const QVariantList &arguments) const {
    sessionBus().call(message(method, arguments), QDBus::NoBlock);
}

} // namespace corvane::wayland::kwin
