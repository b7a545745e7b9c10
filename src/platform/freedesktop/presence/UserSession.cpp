#include "platform/freedesktop/presence/UserSession.h"

#include <utility>

namespace corvane::freedesktop {

UserSession::UserSession(x11::XcbEvents &events, std::string sessionBusAddress,
                         const QDBusConnection &systemBus, std::function<void(bool isAway)> changed)
    : changed_(std::move(changed)),
      serverSaver_(events,
                   [this](bool isOn) { note(QStringLiteral("the server's screen saver"), isOn); }),
      desktopSaver_(
          std::move(sessionBusAddress),
          [this](bool isOn) { note(QStringLiteral("the desktop's screen saver"), isOn); }),
      login_(systemBus, [this](const QString &reason, bool isAway) { note(reason, isAway); }),
      silentLocker_(events.connection(), [this](bool isLocked) {
          note(QStringLiteral("a locker that announces nothing"), isLocked);
      }) {}

/// Several may say so at once; the user is back when none does any more.
void UserSession::note(const QString &reason, bool isReasonToBeAway) {
    const bool wasAway = isAway();
    if (isReasonToBeAway) {
        reasons_.insert(reason);
    } else {
        reasons_.erase(reason);
    }
    if (isAway() != wasAway) {
        changed_(isAway());
    }
}

} // namespace corvane::freedesktop
