#pragma once

#include "platform/freedesktop/tray/DBusMenuTypes.h"
#include "platform/freedesktop/tray/StatusNotifierTypes.h"

#include <QDBusConnection>
#include <QDBusPendingCall>
#include <QObject>
#include <QStringList>
#include <QVariant>

namespace corvane::contract {

/// A desktop's panel as a status item sees it on the bus: the watcher items register with, and a
/// host that reads what they show. It answers from within the test's own event loop.
class FakePanel : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.kde.StatusNotifierWatcher")
    Q_PROPERTY(bool IsStatusNotifierHostRegistered MEMBER hasHost_)

  public:
    explicit FakePanel(bool hasHost = true);
    ~FakePanel() override;
    FakePanel(const FakePanel &) = delete;
    FakePanel &operator=(const FakePanel &) = delete;

    /// The host appears; as panels do, it says so.
    void addHost();

    /// The connections of the items that registered, oldest first.
    QStringList items() const { return items_; }

    /// A property of the last item.
    QVariant itemProperty(const QString &name);
    /// The pixmaps of the last item's icon.
    QList<freedesktop::NotifierPixmap> iconPixmaps();

    /// The whole menu of the last item.
    freedesktop::PanelItemLayout layout();
    /// The line of the whole menu with that label, wherever it is.
    freedesktop::PanelItemLayout line(const QString &label);
    /// False when the item refuses the event.
    bool choose(int id);
    /// Whether the item's menu answers a method called with any arguments; false when it refuses.
    bool callMenu(const QString &method, const QVariantList &arguments);
    /// A left click by a panel that leaves the menu to the program.
    void activate(int x, int y);

    int layoutUpdates() const { return layoutUpdates_; }
    QList<freedesktop::PanelItemProperties> updates() const { return updates_; }
    int newIcons() const { return newIcons_; }
    int newToolTips() const { return newToolTips_; }

    // Named as on the bus.
    Q_SLOT void RegisterStatusNotifierItem(const QString &service);

  private:
    Q_SLOT void layoutUpdated() { ++layoutUpdates_; }
    Q_SLOT void propertiesUpdated(const QList<corvane::freedesktop::PanelItemProperties> &updated,
                                  const QList<corvane::freedesktop::PanelItemNames> &removed);
    Q_SLOT void iconChanged() { ++newIcons_; }
    Q_SLOT void toolTipChanged() { ++newToolTips_; }

    QDBusPendingCall call(const QString &path, const QString &interface, const QString &method,
                          const QVariantList &arguments);

    QDBusConnection bus_;
    bool hasHost_;
    QStringList items_;
    int layoutUpdates_ = 0;
    QList<freedesktop::PanelItemProperties> updates_;
    int newIcons_ = 0;
    int newToolTips_ = 0;
};

} // namespace corvane::contract
