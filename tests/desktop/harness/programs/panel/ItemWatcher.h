#pragma once

#include <QDBusContext>
#include <QObject>
#include <QString>

namespace corvane::desktop {

/// The part of a panel that programs register their status items with.
class ItemWatcher : public QObject, protected QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.kde.StatusNotifierWatcher")
    Q_PROPERTY(bool IsStatusNotifierHostRegistered READ hasHost)
    Q_PROPERTY(int ProtocolVersion READ protocolVersion)

  public:
    /// Takes the watcher's name on the session bus; false when another has it.
    bool appear();

    /// The connection of the last item; empty without one.
    QString item() const { return item_; }

    bool hasHost() const { return true; }
    int protocolVersion() const { return 0; }

    // Named as on the bus.
    Q_SLOT void RegisterStatusNotifierItem(const QString &service);

  private:
    QString item_;
};

} // namespace corvane::desktop
