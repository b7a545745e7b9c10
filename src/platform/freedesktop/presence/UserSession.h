#pragma once

#include "platform/freedesktop/presence/LoginSignals.h"
#include "platform/freedesktop/presence/ScreenSaverSignals.h"
#include "platform/x11/screens/ScreenSaverEvents.h"
#include "platform/x11/screens/SilentLocker.h"

#include <QDBusConnection>
#include <QString>

#include <functional>
#include <set>
#include <string>

namespace corvane::x11 {

class XcbEvents;

} // namespace corvane::x11

namespace corvane::freedesktop {

/// Whether the user is at the screen, by what the X server's screen saver, the desktop's locker and
/// the login manager say. A locker that tells none of them is noticed while the screen is watched.
/// Main thread.
class UserSession {
  public:
    /// Calls `changed` when the user leaves or is back: the screen is locked or its saver comes on,
    /// the system is about to sleep, another user takes the screen over. The events outlive it. A
    /// bus that is not there says nothing.
    UserSession(x11::XcbEvents &events, std::string sessionBusAddress,
                const QDBusConnection &systemBus, std::function<void(bool isAway)> changed);

    /// To be asked for while clicks are made: it wakes the program up.
    void watchScreen(bool isWatching) { silentLocker_.watch(isWatching); }

    bool isAway() const { return !reasons_.empty(); }

  private:
    void note(const QString &reason, bool isReasonToBeAway);

    const std::function<void(bool isAway)> changed_;
    std::set<QString> reasons_;
    x11::ScreenSaverEvents serverSaver_;
    ScreenSaverSignals desktopSaver_;
    LoginSignals login_;
    x11::SilentLocker silentLocker_;
};

} // namespace corvane::freedesktop
