#pragma once

#include "WaylandDesktop.h"

#include <array>
#include <memory>
#include <string>

namespace corvane::desktop {

/// The compositors that a Wayland desktop can have here.
inline const std::array<std::string, 3> compositors{"sway", "labwc", "kwin"};

/// Those that report to programs where windows are.
inline const std::array<std::string, 2> windowReportingCompositors{"sway", "kwin"};

/// A desktop with the compositor of that name.
std::unique_ptr<WaylandDesktop> makeWaylandDesktop(const std::string &compositor);

} // namespace corvane::desktop
