#pragma once

#include <QDBusConnection>
#include <QObject>
#include <QStringList>
#include <QVariantMap>

#include <functional>

namespace corvane::freedesktop {

/// The login manager (org.freedesktop.login1): sleep of the system; lock, unlock and change of the
/// user in front of the screen for the session this program is in. Main thread.
class LoginSignals : public QObject {
    Q_OBJECT

  public:
    /// Calls `changed` with why the user is away, or no longer.
    LoginSignals(QDBusConnection bus,
                 std::function<void(const QString &reason, bool isAway)> changed);

  private:
    Q_SLOT void prepareForSleep(bool isAboutToSleep);
    Q_SLOT void locked();
    Q_SLOT void unlocked();
    Q_SLOT void propertiesChanged(const QString &interface, const QVariantMap &changed,
                                  const QStringList &invalidated);

    void findSession();
    void watchSession(const QString &path);

    QDBusConnection bus_;
    const std::function<void(const QString &reason, bool isAway)> changed_;
};

} // namespace corvane::freedesktop
