#pragma once

#include "HelperProgram.h"
#include "servers/VirtualDesktop.h"

#include <utility>

namespace corvane::desktop {

/// A login manager (org.freedesktop.login1) on the desktop's message bus.
class LoginManager {
  public:
    explicit LoginManager(const VirtualDesktop &desktop);

    /// The variable by which a program finds it.
    const std::pair<const std::string, std::string> &environment() const { return environment_; }

    /// Waits until a program has looked its session up; false when time runs out.
    bool waitForProgram();

    /// As `loginctl lock-session` does.
    void lock() { program_.request("lock"); }
    void unlock() { program_.request("unlock"); }
    /// Another user's session gets the screen.
    void switchAway() { program_.request("switch away"); }
    /// The system is about to sleep.
    void prepareForSleep() { program_.request("sleep"); }

  private:
    std::pair<const std::string, std::string> environment_;
    HelperProgram program_;
};

} // namespace corvane::desktop
