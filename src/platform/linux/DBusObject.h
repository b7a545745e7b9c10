#pragma once

#include <QDBusConnection>
#include <QDBusVirtualObject>
#include <QVariant>

#include <optional>

namespace corvane::x11 {

/// An object of this program that other programs reach over D-Bus: one interface with methods,
/// properties that only this program changes, and signals. Main thread.
class DBusObject : public QDBusVirtualObject {
  public:
    DBusObject(QDBusConnection connection, QString path, QString interface);
    ~DBusObject() override;
    DBusObject(const DBusObject &) = delete;
    DBusObject &operator=(const DBusObject &) = delete;

    const QString &path() const { return path_; }

    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override;

  protected:
    /// The method's answers; nothing for a method that does not exist or cannot be carried out with
    /// these arguments.
    virtual std::optional<QVariantList> call(const QString &method,
                                             const QVariantList &arguments) = 0;
    virtual QVariantMap properties() const = 0;

    void emitSignal(const QString &name, const QVariantList &arguments = {});

  private:
    std::optional<QVariantList> callProperties(const QString &method,
                                               const QVariantList &arguments) const;

    QDBusConnection connection_;
    QString path_;
    QString interface_;
};

} // namespace corvane::x11
