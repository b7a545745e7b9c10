#pragma once

#include "SpokenControl.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusObjectPath>
#include <QString>
#include <QVariant>

#include <vector>

namespace corvane::desktop {

/// An object of a program as assistive technology sees it, over the accessibility bus (AT-SPI).
/// What the program does not answer is empty.
class AccessibleObject {
  public:
    /// How objects are named on the bus.
    struct Reference {
        QString service;
        QDBusObjectPath path;
    };

    /// Positions in the set of states.
    enum class State {
        active = 1,
        checked = 4,
        enabled = 8,
        focused = 12,
        selected = 23,
        showing = 25
    };

    AccessibleObject(QDBusConnection bus, Reference reference);

    /// Where all programs are found.
    static AccessibleObject root(const QDBusConnection &bus);

    QString name() const;
    QString role() const;
    bool is(State state) const;
    std::vector<AccessibleObject> children() const;

    /// With everything that a screen reader says about it.
    SpokenControl control() const;

  private:
    QVariant call(const QString &interface, const QString &method,
                  const QVariantList &arguments = {}) const;
    QVariant property(const QString &interface, const QString &name) const;
    bool has(const QString &interface) const;

    QDBusConnection bus_;
    Reference reference_;
};

QDBusArgument &operator<<(QDBusArgument &argument, const AccessibleObject::Reference &reference);
const QDBusArgument &operator>>(const QDBusArgument &argument,
                                AccessibleObject::Reference &reference);

} // namespace corvane::desktop

Q_DECLARE_METATYPE(corvane::desktop::AccessibleObject::Reference)
