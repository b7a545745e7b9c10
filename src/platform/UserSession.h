#pragma once

#include <functional>

namespace corvane::platform {

/// Whether clicks reach the desktop of the user this program runs for.
enum class SessionState {
    active,
    /// The screen is locked: clicks would reach the login screen.
    locked,
    /// Another user's session has the screen.
    otherUser
};

/// The user's login session. A screen that is blank, shows a screen saver without a lock or sleeps
/// leaves it active. Main thread.
class UserSession {
  public:
    virtual ~UserSession() = default;

    /// Active where the system does not say.
    virtual SessionState state() const = 0;

    /// Calls `changed` after each change of the state, in place of what was given before.
    virtual void whenChanged(std::function<void()> changed) = 0;
};

} // namespace corvane::platform
