#pragma once

#include <QDBusConnection>
#include <QDBusVirtualObject>
#include <QMap>
#include <QVariant>

#include <optional>

namespace corvane::freedesktop {

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
    /// The types of each method's arguments, as the bus writes them.
    using Signatures = QMap<QString, QString>;
    virtual Signatures methods() const = 0;

    /// The answers of one of these methods, called with arguments of these types; nothing where it
    /// cannot be carried out with them.
    virtual std::optional<QVariantList> call(const QString &method,
                                             const QVariantList &arguments) = 0;
    virtual QVariantMap properties() const = 0;

    void emitSignal(const QString &name, const QVariantList &arguments = {});

  private:
    std::optional<QVariantList> answers(const QDBusMessage &message);
    std::optional<QVariantList> callProperties(const QString &method,
                                               const QVariantList &arguments) const;

    QDBusConnection connection_;
    QString path_;
    QString interface_;
};

} // namespace corvane::freedesktop
