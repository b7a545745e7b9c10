#pragma once

#include <QDBusConnection>
#include <QDBusVirtualObject>

namespace corvane::desktop {

/// org.freedesktop.login1 with one session, that of whichever program calls.
class LoginManagerObject : public QDBusVirtualObject {
  public:
    /// Takes the name on the bus; false where that fails.
    bool appear();

    /// How many programs have called for the path of their session.
    int sessionRequests() const { return sessionRequests_; }

    // Each sends a signal.
    bool sendLock(const QString &name);
    bool sendActive(bool isActive);
    bool sendSleep();

    QString introspect(const QString &path) const override;
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override;

  private:
    QDBusConnection bus_ = QDBusConnection::systemBus();
    int sessionRequests_ = 0;
};

} // namespace corvane::desktop
