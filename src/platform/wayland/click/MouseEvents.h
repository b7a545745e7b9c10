#pragma once

#include "platform/MouseEvents.h"
#include "platform/wayland/click/CursorReader.h"

#include <functional>
#include <memory>

namespace corvane::wayland {

class Connection;

/// Whether the compositor offers programs to press the button, to find the cursor and to show
/// overlays.
bool letsProgramsClick(const Connection &connection);

/// Clicks through the compositor that WAYLAND_DISPLAY names.
class MouseEvents : public platform::MouseEvents {
  public:
    /// Makes what a session reads the cursor with; empty where each session finds it by a probe.
    using CursorReaders = std::function<std::unique_ptr<CursorReader>()>;

    explicit MouseEvents(CursorReaders cursorReaders = {})
        : cursorReaders_(std::move(cursorReaders)) {}

    std::unique_ptr<platform::MouseSession> openSession() override;

  private:
    const CursorReaders cursorReaders_;
};

} // namespace corvane::wayland
