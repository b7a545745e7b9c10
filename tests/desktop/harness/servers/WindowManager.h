#pragma once

#include <string>
#include <vector>

namespace corvane::desktop {

/// The window managers the program is tested with.
enum class WindowManager { none, openbox, xfwm4, metacity, marco, kwin };

/// Its program and arguments; its own compositor is off.
std::vector<std::string> commandOf(WindowManager windowManager);

/// The window manager whose program is called so; `none` for any other name.
WindowManager windowManagerNamed(const std::string &program);

} // namespace corvane::desktop
