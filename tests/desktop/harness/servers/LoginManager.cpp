#include "LoginManager.h"

#include "WaitUntil.h"

namespace corvane::desktop {

LoginManager::LoginManager(const VirtualDesktop &desktop)
    : environment_("DBUS_SYSTEM_BUS_ADDRESS", desktop.environment().at("DBUS_SESSION_BUS_ADDRESS")),
      program_(desktop,
               {"env", environment_.first + "=" + environment_.second, CORVANE_LOGIN_MANAGER}) {
    // It answers once it has its name on the bus.
    program_.request("is known");
}

bool LoginManager::waitForProgram() {
    return waitUntil([this] { return program_.request("is known").back() == "done"; });
}

} // namespace corvane::desktop
