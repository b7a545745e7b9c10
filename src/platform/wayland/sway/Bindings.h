#pragma once

#include <string>
#include <string_view>

namespace corvane::wayland::sway {

/// Whether sway's configuration binds those keys, such as "Mod4+Shift+y", to something. Variables
/// are followed, included files are not.
bool bindsKeys(std::string_view configuration, std::string_view keys);

} // namespace corvane::wayland::sway
