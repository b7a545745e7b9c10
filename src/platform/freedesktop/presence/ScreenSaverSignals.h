#pragma once

#include "platform/freedesktop/bus/SessionBus.h"

#include <QDBusMessage>
#include <QDBusServiceWatcher>
#include <QObject>

#include <functional>
#include <string>

namespace corvane::freedesktop {

/// The desktop's own screen savers and lockers, by what they say on the session bus. Main thread.
class ScreenSaverSignals : public QObject {
    Q_OBJECT

  public:
    /// Calls `changed` when a saver comes on or goes off, or the program that showed it ends, or
    /// nobody can tell because the bus is gone.
    ScreenSaverSignals(std::string busAddress, std::function<void(bool isOn)> changed);

  private:
    Q_SLOT void activeChanged(bool isOn, const QDBusMessage &message);

    void listen();
    void busChanged();
    void watch(const QString &saver);
    void gone(const QString &saver);

    const std::function<void(bool isOn)> changed_;
    SessionBus bus_;
    QDBusServiceWatcher savers_;
};

} // namespace corvane::freedesktop
