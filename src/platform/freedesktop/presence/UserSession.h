#pragma once

#include "platform/UserSession.h"
#include "platform/freedesktop/presence/LoginSignals.h"
#include "platform/freedesktop/presence/ScreenSaverSignals.h"

#include <string>

namespace corvane::freedesktop {

/// The session's state as the login manager and the desktop's screen locker announce it. A bus that
/// is not there announces nothing. Main thread.
class UserSession : public platform::UserSession {
  public:
    /// The addresses of the message buses; an empty one for a bus that is not there.
    UserSession(std::string sessionBusAddress, const std::string &systemBusAddress);

    platform::SessionState state() const override;
    void whenChanged(std::function<void()> changed) override { changed_ = std::move(changed); }

  private:
    /// Stores one of the announcements below.
    void set(bool &announcement, bool isSo);

    std::function<void()> changed_;
    bool isLockedByLoginManager_ = false;
    bool isLockedByDesktop_ = false;
    bool isOtherUserActive_ = false;
    ScreenSaverSignals desktop_;
    LoginSignals login_;
};

} // namespace corvane::freedesktop
