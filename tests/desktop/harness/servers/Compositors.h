#pragma once

#include "WaylandDesktop.h"

#include <array>
#include <memory>
#include <string>

namespace corvane::desktop {

/// The compositors that a Wayland desktop can have here.
inline const std::array<std::string, 4> compositors{"sway", "labwc", "kwin", "kwin_eis"};

/// Those and GNOME, whose picker is an X client's. Its users have no hot key to start runs with.
inline const std::array<std::string, 5> pickingCompositors{"sway", "labwc", "kwin", "kwin_eis",
                                                           "gnome"};

/// Those that report to programs where windows are.
inline const std::array<std::string, 3> windowReportingCompositors{"sway", "kwin", "kwin_eis"};

/// A desktop with the compositor of that name.
std::unique_ptr<WaylandDesktop> makeWaylandDesktop(const std::string &compositor);

} // namespace corvane::desktop
