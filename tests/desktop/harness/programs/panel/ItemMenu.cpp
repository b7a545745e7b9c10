#include "ItemMenu.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusVariant>
#include <QStringList>

#include <utility>

namespace corvane::desktop {

namespace {

QDBusMessage call(const QString &service, const QString &path, const QString &interface,
                  const QString &method, const QVariantList &arguments) {
    QDBusMessage message = QDBusMessage::createMethodCall(service, path, interface, method);
    message.setArguments(arguments);
    return QDBusConnection::sessionBus().call(message);
}

QString menuPathOf(const QString &service) {
    const QDBusMessage reply =
        call(service, QStringLiteral("/StatusNotifierItem"),
             QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"),
             {QStringLiteral("org.kde.StatusNotifierItem"), QStringLiteral("Menu")});
    return reply.arguments()
        .value(0)
        .value<QDBusVariant>()
        .variant()
        .value<QDBusObjectPath>()
        .path();
}

/// Reads (ia{sv}av): a line with what lies beneath it.
void readLine(const QDBusArgument &argument, int depth, std::vector<ItemMenuLine> &lines) {
    ItemMenuLine line{.depth = depth};
    argument.beginStructure();
    argument >> line.id >> line.properties;
    if (depth >= 0) {
        lines.push_back(line);
    }
    argument.beginArray();
    while (!argument.atEnd()) {
        QDBusVariant child;
        argument >> child;
        readLine(child.variant().value<QDBusArgument>(), depth + 1, lines);
    }
    argument.endArray();
    argument.endStructure();
}

const QString menuInterface = QStringLiteral("com.canonical.dbusmenu");

} // namespace

QString ItemMenuLine::label() const { return properties.value(QStringLiteral("label")).toString(); }

ItemMenu::ItemMenu(QString service) : service_(std::move(service)), path_(menuPathOf(service_)) {}

std::vector<ItemMenuLine> ItemMenu::lines() const {
    std::vector<ItemMenuLine> lines;
    const QDBusMessage reply =
        call(service_, path_, menuInterface, QStringLiteral("GetLayout"), {0, -1, QStringList()});
    if (reply.arguments().size() == 2) {
        constexpr int menuItself = -1;
        readLine(reply.arguments().at(1).value<QDBusArgument>(), menuItself, lines);
    }
    return lines;
}

bool ItemMenu::choose(int id) const {
    const QDBusMessage reply =
        call(service_, path_, menuInterface, QStringLiteral("Event"),
             {id, QStringLiteral("clicked"), QVariant::fromValue(QDBusVariant(0)), 0U});
    return reply.type() == QDBusMessage::ReplyMessage;
}

} // namespace corvane::desktop
