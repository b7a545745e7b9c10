#pragma once

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMetaType>
#include <QDBusVirtualObject>
#include <QVariant>

#include <functional>
#include <optional>
#include <vector>

namespace corvane::freedesktop {

/// An object of this program that other programs call over D-Bus: one interface with methods,
/// properties that only this program changes, and signals. Main thread.
class DBusObject : public QDBusVirtualObject {
  public:
    DBusObject(QDBusConnection connection, QString path, QString interface);
    ~DBusObject() override;
    DBusObject(const DBusObject &) = delete;
    DBusObject &operator=(const DBusObject &) = delete;

    const QString &path() const { return path_; }

    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override;
    QString introspect(const QString &path) const override;

  protected:
    /// The values of a reply; nothing where the method fails with the arguments it was given.
    using Reply = std::optional<QVariantList>;

    struct Method {
        QString name;
        /// D-Bus signatures. A call whose arguments have other types is refused.
        QString arguments;
        QString results;
        std::function<Reply(const QVariantList &arguments)> call;
    };
    struct Signal {
        QString name;
        QString arguments;
    };

    /// Completes the interface; called once, at the end of the derived class's constructor.
    void offer(std::vector<Method> methods, std::vector<Signal> emitted);
    virtual QVariantMap properties() const = 0;

    void emitSignal(const QString &name, const QVariantList &arguments = {});

  private:
    Reply callMethod(const QDBusMessage &message) const;
    Reply callProperties(const QString &method, const QVariantList &arguments) const;

    QDBusConnection connection_;
    QString path_;
    QString interface_;
    std::vector<Method> methods_;
    std::vector<Signal> signals_;
};

/// Makes a type with an `operator<<` to QDBusArgument known to Qt for sending. Repeating it is
/// harmless.
template <typename Value>
void registerSentType() {
    QDBusMetaType::registerMarshallOperators(
        QMetaType::fromType<Value>(),
        [](QDBusArgument &argument, const void *value) {
            argument << *static_cast<const Value *>(value);
        },
        [](const QDBusArgument &, void *) {});
}

} // namespace corvane::freedesktop
