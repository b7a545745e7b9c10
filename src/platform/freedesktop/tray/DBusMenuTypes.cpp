#include "platform/freedesktop/tray/DBusMenuTypes.h"

#include <QDBusMetaType>
#include <QDBusVariant>

namespace corvane::freedesktop {

void registerPanelMenuTypes() {
    qDBusRegisterMetaType<PanelItemProperties>();
    qDBusRegisterMetaType<PanelItemNames>();
    qDBusRegisterMetaType<PanelItemLayout>();
    qDBusRegisterMetaType<QList<PanelItemProperties>>();
    qDBusRegisterMetaType<QList<PanelItemNames>>();
    qDBusRegisterMetaType<QList<QStringList>>();
    qDBusRegisterMetaType<QList<int>>();
}

// NOLINTBEGIN(bugprone-return-const-ref-from-parameter): what the toolkit asks for

QDBusArgument &operator<<(QDBusArgument &argument, const PanelItemProperties &value) {
    argument.beginStructure();
    argument << value.id << value.properties;
    argument.endStructure();
    return argument;
}

const QDBusArgument &operator>>(const QDBusArgument &argument, PanelItemProperties &value) {
    argument.beginStructure();
    argument >> value.id >> value.properties;
    argument.endStructure();
    return argument;
}

QDBusArgument &operator<<(QDBusArgument &argument, const PanelItemNames &value) {
    argument.beginStructure();
    argument << value.id << value.names;
    argument.endStructure();
    return argument;
}

const QDBusArgument &operator>>(const QDBusArgument &argument, PanelItemNames &value) {
    argument.beginStructure();
    argument >> value.id >> value.names;
    argument.endStructure();
    return argument;
}

QDBusArgument &operator<<(QDBusArgument &argument, const PanelItemLayout &value) {
    argument.beginStructure();
    argument << value.id << value.properties;
    argument.beginArray(QMetaType::fromType<QDBusVariant>());
    for (const auto &child : value.children) {
        argument << QDBusVariant(QVariant::fromValue(child));
    }
    argument.endArray();
    argument.endStructure();
    return argument;
}

const QDBusArgument &operator>>(const QDBusArgument &argument, PanelItemLayout &value) {
    argument.beginStructure();
    argument >> value.id >> value.properties;
    argument.beginArray();
    while (!argument.atEnd()) {
        QDBusVariant child;
        argument >> child;
        value.children << qdbus_cast<PanelItemLayout>(child.variant());
    }
    argument.endArray();
    argument.endStructure();
    return argument;
}

// NOLINTEND(bugprone-return-const-ref-from-parameter)

} // namespace corvane::freedesktop
