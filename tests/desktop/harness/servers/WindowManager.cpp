#include "WindowManager.h"

#include <array>

namespace corvane::desktop {

std::vector<std::string> commandOf(WindowManager windowManager) {
    switch (windowManager) {
    case WindowManager::none:
        return {};
    case WindowManager::openbox:
        return {"openbox", "--sm-disable"};
    case WindowManager::xfwm4:
        return {"xfwm4", "--compositor=off"};
    case WindowManager::metacity:
        return {"metacity", "--no-composite", "--sm-disable"};
    case WindowManager::marco:
        return {"marco", "--no-composite", "--sm-disable"};
    case WindowManager::kwin:
        return {"kwin_x11"};
    }
    return {};
}

WindowManager windowManagerNamed(const std::string &program) {
    for (const auto candidate :
         std::array{WindowManager::openbox, WindowManager::xfwm4, WindowManager::metacity,
                    WindowManager::marco, WindowManager::kwin}) {
        if (commandOf(candidate).front() == program) {
            return candidate;
        }
    }
    return WindowManager::none;
}

} // namespace corvane::desktop
