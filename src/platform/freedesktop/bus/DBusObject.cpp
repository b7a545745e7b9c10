#include "platform/freedesktop/bus/DBusObject.h"

#include <QDBusMessage>
#include <QDBusVariant>

#include <utility>

namespace corvane::freedesktop {

DBusObject::DBusObject(QDBusConnection connection, QString path, QString interface)
    : connection_(std::move(connection)),
      path_(std::move(path)),
      interface_(std::move(interface)) {
    connection_.registerVirtualObject(path_, this);
}

DBusObject::~DBusObject() { connection_.unregisterObject(path_); }

bool DBusObject::handleMessage(const QDBusMessage &message, const QDBusConnection &connection) {
    if (message.type() != QDBusMessage::MethodCallMessage) {
        return false;
    }
    const auto isForProperties =
        message.interface() == QLatin1String("org.freedesktop.DBus.Properties");
    if (!isForProperties && !message.interface().isEmpty() && message.interface() != interface_) {
        return false;
    }
    const auto given =
        isForProperties ? callProperties(message.member(), message.arguments()) : answers(message);
    if (message.isReplyRequired()) {
        connection.send(given ? message.createReply(*given)
                              : message.createErrorReply(QDBusError::InvalidArgs,
                                                         QStringLiteral("not understood")));
    }
    return true;
}

void DBusObject::emitSignal(const QString &name, const QVariantList &arguments) {
    auto signal = QDBusMessage::createSignal(path_, interface_, name);
    signal.setArguments(arguments);
    connection_.send(signal);
}

/// Arguments of other types are not looked at: reading a list of them may never end.
std::optional<QVariantList> DBusObject::answers(const QDBusMessage &message) {
    const auto known = methods();
    const auto method = known.constFind(message.member());
    if (method == known.cend() || message.signature() != *method) {
        return std::nullopt;
    }
    return call(message.member(), message.arguments());
}

std::optional<QVariantList> DBusObject::callProperties(const QString &method,
                                                       const QVariantList &arguments) const {
    if (arguments.value(0).toString() != interface_) {
        return std::nullopt;
    }
    const auto all = properties();
    if (method == QLatin1String("GetAll")) {
        return QVariantList{all};
    }
    const auto property = all.constFind(arguments.value(1).toString());
    if (method != QLatin1String("Get") || property == all.cend()) {
        return std::nullopt;
    }
    return QVariantList{QVariant::fromValue(QDBusVariant(*property))};
}

} // namespace corvane::freedesktop
