#pragma once

#include <QDBusArgument>
#include <QDBusMetaType>
#include <QDBusVariant>
#include <QList>
#include <QString>

namespace corvane {

/// (isvu): what happened to a line of a menu, as EventGroup takes it.
struct MenuEvent {
    int id = 0;
    QString name;
    QDBusVariant data;
    uint time = 0;
};

inline QDBusArgument &operator<<(QDBusArgument &argument, const MenuEvent &event) {
    argument.beginStructure();
    argument << event.id << event.name << event.data << event.time;
    argument.endStructure();
    return argument;
}

inline const QDBusArgument &operator>>(const QDBusArgument &argument, MenuEvent &event) {
    argument.beginStructure();
    argument >> event.id >> event.name >> event.data >> event.time;
    argument.endStructure();
    return argument; // NOLINT(bugprone-return-const-ref-from-parameter): as the toolkit wants it
}

/// Before the first is sent.
inline void registerMenuEvents() {
    qDBusRegisterMetaType<MenuEvent>();
    qDBusRegisterMetaType<QList<MenuEvent>>();
}

} // namespace corvane

Q_DECLARE_METATYPE(corvane::MenuEvent)
