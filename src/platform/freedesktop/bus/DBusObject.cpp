#include "platform/freedesktop/bus/DBusObject.h"

#include <QDBusMessage>
#include <QDBusVariant>
#include <QStringList>

#include <algorithm>
#include <utility>

namespace corvane::freedesktop {

using namespace Qt::StringLiterals;

namespace {

/// The complete types in a signature: "i" and "a{sv}" of "ia{sv}".
QStringList typesIn(const QString &signature) {
    QStringList types;
    QString type;
    int depth = 0;
    for (const QChar code : signature) {
        type += code;
        if (code == u'(' || code == u'{') {
            ++depth;
        } else if (code == u')' || code == u'}') {
            --depth;
        }
        if (depth == 0 && code != u'a') {
            types << std::exchange(type, {});
        }
    }
    return types;
}

QString argumentsXml(const QString &signature, const QString &attributes) {
    QString xml;
    for (const QString &type : typesIn(signature)) {
        xml += u"    <arg type=\"%1\"%2/>\n"_s.arg(type, attributes);
    }
    return xml;
}

} // namespace

DBusObject::DBusObject(QDBusConnection connection, QString path, QString interface)
    : connection_(std::move(connection)),
      path_(std::move(path)),
      interface_(std::move(interface)) {
    connection_.registerVirtualObject(path_, this);
}

DBusObject::~DBusObject() { connection_.unregisterObject(path_); }

void DBusObject::offer(std::vector<Method> methods, std::vector<Signal> emitted) {
    methods_ = std::move(methods);
    signals_ = std::move(emitted);
}

bool DBusObject::handleMessage(const QDBusMessage &message, const QDBusConnection &connection) {
    if (message.type() != QDBusMessage::MethodCallMessage) {
        return false;
    }
    const bool isForProperties = message.interface() == u"org.freedesktop.DBus.Properties";
    if (!isForProperties && !message.interface().isEmpty() && message.interface() != interface_) {
        return false;
    }
    const Reply reply = isForProperties ? callProperties(message.member(), message.arguments())
                                        : callMethod(message);
    if (message.isReplyRequired()) {
        connection.send(reply ? message.createReply(*reply)
                              : message.createErrorReply(QDBusError::InvalidArgs,
                                                         u"invalid method or arguments"_s));
    }
    return true;
}

/// The signature is compared first: Qt may never come to the end of an array that is read as
/// another type than it has.
DBusObject::Reply DBusObject::callMethod(const QDBusMessage &message) const {
    const auto method = std::ranges::find(methods_, message.member(), &Method::name);
    if (method == methods_.end() || message.signature() != method->arguments) {
        return std::nullopt;
    }
    return method->call(message.arguments());
}

DBusObject::Reply DBusObject::callProperties(const QString &method,
                                             const QVariantList &arguments) const {
    if (arguments.value(0).toString() != interface_) {
        return std::nullopt;
    }
    const auto all = properties();
    if (method == u"GetAll") {
        return QVariantList{all};
    }
    const auto property = all.constFind(arguments.value(1).toString());
    if (method != u"Get" || property == all.cend()) {
        return std::nullopt;
    }
    return QVariantList{QVariant::fromValue(QDBusVariant(*property))};
}

void DBusObject::emitSignal(const QString &name, const QVariantList &arguments) {
    auto signal = QDBusMessage::createSignal(path_, interface_, name);
    signal.setArguments(arguments);
    connection_.send(signal);
}

QString DBusObject::introspect(const QString & /*path*/) const {
    QString xml = u"<interface name=\"%1\">\n"_s.arg(interface_);
    const auto all = properties();
    for (auto property = all.cbegin(); property != all.cend(); ++property) {
        xml += u"  <property name=\"%1\" type=\"%2\" access=\"read\"/>\n"_s.arg(
            property.key(),
            QString::fromLatin1(QDBusMetaType::typeToSignature(property->metaType())));
    }
    for (const Method &method : methods_) {
        xml += u"  <method name=\"%1\">\n"_s.arg(method.name) +
               argumentsXml(method.arguments, u" direction=\"in\""_s) +
               argumentsXml(method.results, u" direction=\"out\""_s) + u"  </method>\n"_s;
    }
    for (const Signal &signal : signals_) {
        xml += u"  <signal name=\"%1\">\n"_s.arg(signal.name) + argumentsXml(signal.arguments, {}) +
               u"  </signal>\n"_s;
    }
    return xml + u"</interface>\n"_s;
}

} // namespace corvane::freedesktop
