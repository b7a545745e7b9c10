#pragma once

#include <QDBusConnection>
#include <QObject>
#include <QStringList>
#include <QVariantMap>

#include <functional>

namespace corvane::freedesktop {

/// Signals of the login manager (org.freedesktop.login1) about the session this program is in. Main
/// thread.
class LoginSignals : public QObject {
    Q_OBJECT

  public:
    struct Callbacks {
        std::function<void(bool isLocked)> lockChanged;
        /// Whether the session has the screen, or another user's session.
        std::function<void(bool isActive)> activeChanged;
    };

    LoginSignals(QDBusConnection bus, Callbacks callbacks);

  private:
    Q_SLOT void locked();
    Q_SLOT void unlocked();
    Q_SLOT void propertiesChanged(const QString &interface, const QVariantMap &changed,
                                  const QStringList &invalidated);

    void findSession();
    void watchSession(const QString &path);

    QDBusConnection bus_;
    const Callbacks callbacks_;
};

} // namespace corvane::freedesktop
