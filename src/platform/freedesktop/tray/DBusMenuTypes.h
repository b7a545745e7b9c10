#pragma once

#include <QDBusArgument>
#include <QList>
#include <QMetaType>
#include <QStringList>
#include <QVariantMap>

namespace corvane::freedesktop {

/// The values of com.canonical.dbusmenu as they travel.

/// (ia{sv}): an item and some of its properties.
struct PanelItemProperties {
    int id = 0;
    QVariantMap properties;
};

/// (ias): an item and the names of properties that are back at their defaults.
struct PanelItemNames {
    int id = 0;
    QStringList names;
};

/// (ia{sv}av): an item with what lies beneath it.
struct PanelItemLayout {
    int id = 0;
    QVariantMap properties;
    QList<PanelItemLayout> children;
};

/// Lets all of them travel; once is enough, more does no harm.
void registerPanelMenuTypes();

QDBusArgument &operator<<(QDBusArgument &argument, const PanelItemProperties &value);
const QDBusArgument &operator>>(const QDBusArgument &argument, PanelItemProperties &value);
QDBusArgument &operator<<(QDBusArgument &argument, const PanelItemNames &value);
const QDBusArgument &operator>>(const QDBusArgument &argument, PanelItemNames &value);
QDBusArgument &operator<<(QDBusArgument &argument, const PanelItemLayout &value);
const QDBusArgument &operator>>(const QDBusArgument &argument, PanelItemLayout &value);

} // namespace corvane::freedesktop

Q_DECLARE_METATYPE(corvane::freedesktop::PanelItemProperties)
Q_DECLARE_METATYPE(corvane::freedesktop::PanelItemNames)
Q_DECLARE_METATYPE(corvane::freedesktop::PanelItemLayout)
