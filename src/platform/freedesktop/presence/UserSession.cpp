#include "platform/freedesktop/presence/UserSession.h"

#include <utility>

namespace corvane::freedesktop {

UserSession::UserSession(std::string sessionBusAddress, const std::string &systemBusAddress)
    : desktop_(std::move(sessionBusAddress),
               [this](bool isLocked) { set(isLockedByDesktop_, isLocked); }),
      login_(systemBusAddress,
             {.lockChanged = [this](bool isLocked) { set(isLockedByLoginManager_, isLocked); },
              .activeChanged = [this](bool isActive) { set(isOtherUserActive_, !isActive); }}) {}

platform::SessionState UserSession::state() const {
    if (isOtherUserActive_) {
        return platform::SessionState::otherUser;
    }
    return isLockedByLoginManager_ || isLockedByDesktop_ ? platform::SessionState::locked
                                                         : platform::SessionState::active;
}

void UserSession::set(bool &announcement, bool isSo) {
    const platform::SessionState before = state();
    announcement = isSo;
    if (state() != before && changed_) {
        changed_();
    }
}

} // namespace corvane::freedesktop
