#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusServiceWatcher>
#include <QObject>

#include <functional>

namespace corvane::x11 {

/// The desktop's own screen savers and lockers, by what they say on the session bus. Main thread.
class ScreenSaverSignals : public QObject {
    Q_OBJECT

  public:
    /// Calls `changed` when a saver comes on or goes off, or the program that showed it ends.
    ScreenSaverSignals(QDBusConnection bus, std::function<void(bool isOn)> changed);

  private:
    Q_SLOT void activeChanged(bool isOn, const QDBusMessage &message);

    void watch(const QString &saver);
    void gone(const QString &saver);

    QDBusConnection bus_;
    const std::function<void(bool isOn)> changed_;
    QDBusServiceWatcher savers_;
};

} // namespace corvane::x11
