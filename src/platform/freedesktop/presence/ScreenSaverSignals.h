#pragma once

#include "platform/freedesktop/bus/SessionBus.h"

#include <QDBusMessage>
#include <QDBusServiceWatcher>
#include <QObject>

#include <functional>
#include <string>

namespace corvane::freedesktop {

/// The desktop's screen locker as it announces itself on the session bus. Main thread.
class ScreenSaverSignals : public QObject {
    Q_OBJECT

  public:
    /// Calls `changed` when the screen is locked or unlocked. It counts as unlocked when the
    /// locker's process ends or the bus is lost.
    ScreenSaverSignals(std::string busAddress, std::function<void(bool isLocked)> changed);

  private:
    Q_SLOT void activeChanged(bool isLocked, const QDBusMessage &message);

    void listen();
    void busChanged();
    void watch(const QString &saver);
    void gone(const QString &saver);

    const std::function<void(bool isLocked)> changed_;
    SessionBus bus_;
    QDBusServiceWatcher savers_;
};

} // namespace corvane::freedesktop
