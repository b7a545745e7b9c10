#pragma once

#include "platform/freedesktop/bus/DBusObject.h"

#include <QImage>
#include <QList>
#include <QPoint>

#include <functional>

namespace corvane::freedesktop {

/// A status item that the desktop's panel shows, over org.kde.StatusNotifierItem. Main thread.
class StatusNotifierItem : public DBusObject {
  public:
    /// `menuPath` is the object path of the item's menu on the same connection. `activate` is
    /// called, in a later event-loop iteration, when a panel leaves showing the menu to the
    /// program; the point is the click's position in global pixels, or null where the panel does
    /// not know it.
    StatusNotifierItem(const QDBusConnection &connection, QString menuPath,
                       std::function<void(QPoint)> activate);

    /// `images` are one picture in several sizes, `description` is its name for screen readers.
    void setIcon(const QList<QImage> &images, const QString &description);

    void setToolTip(const QString &text);

  protected:
    QVariantMap properties() const override;

  private:
    QString menuPath_;
    QVariant pixmaps_;
    QString description_;
    QString toolTip_;
};

} // namespace corvane::freedesktop
