#pragma once

#include "platform/MouseEvents.h"

namespace corvane::wayland {

class Connection;

/// Whether the compositor offers programs to press the button, to find the cursor and to show
/// overlays.
bool letsProgramsClick(const Connection &connection);

/// Clicks through the compositor that WAYLAND_DISPLAY names.
class MouseEvents : public platform::MouseEvents {
  public:
    std::unique_ptr<platform::MouseSession> openSession() override;
};

} // namespace corvane::wayland
