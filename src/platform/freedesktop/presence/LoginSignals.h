#pragma once

#include "platform/freedesktop/bus/BusConnection.h"

#include <functional>
#include <string>
#include <vector>

namespace corvane::freedesktop {

/// Signals of the login manager (org.freedesktop.login1) about the session this program is in. Main
/// thread.
class LoginSignals {
  public:
    struct Callbacks {
        std::function<void(bool isLocked)> lockChanged;
        /// Whether the session has the screen, or another user's session.
        std::function<void(bool isActive)> activeChanged;
    };

    LoginSignals(const std::string &busAddress, Callbacks callbacks);

  private:
    void findSession();
    void watchSession(const std::string &path);
    void propertiesChanged(BusMessage &signal);

    const Callbacks callbacks_;
    BusConnection bus_;
    BusSlot request_;
    std::vector<BusSlot> signals_;
};

} // namespace corvane::freedesktop
