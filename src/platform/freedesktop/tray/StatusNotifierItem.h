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
    /// `menuPath` is where the item's menu is found on the same connection; `activate` is called
    /// with a place on the screen by panels that leave showing the menu to the program.
    StatusNotifierItem(const QDBusConnection &connection, QString menuPath,
                       std::function<void(QPoint)> activate);

    /// The same drawing in several sizes; what a screen reader calls it.
    void setIcon(const QList<QImage> &images, const QString &description);

    void setToolTip(const QString &text);

    QString introspect(const QString &path) const override;

  protected:
    Signatures methods() const override;
    std::optional<QVariantList> call(const QString &method, const QVariantList &arguments) override;
    QVariantMap properties() const override;

  private:
    QString menuPath_;
    std::function<void(QPoint)> activate_;
    QVariant pixmaps_;
    QString description_;
    QString toolTip_;
};

} // namespace corvane::freedesktop
