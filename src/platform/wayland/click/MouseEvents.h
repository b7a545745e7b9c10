#pragma once

#include "platform/MouseEvents.h"
#include "platform/wayland/click/ClickDevice.h"
#include "platform/wayland/click/CursorReader.h"

#include <functional>
#include <memory>

namespace corvane::wayland {

/// Clicks through the compositor that WAYLAND_DISPLAY names.
class MouseEvents : public platform::MouseEvents {
  public:
    /// Makes what a session reads the cursor with; empty where each session finds it by a probe.
    using CursorReaders = std::function<std::unique_ptr<CursorReader>()>;

    /// Makes what a session clicks with where the compositor's Wayland interface offers nothing.
    using OtherDevices = std::function<std::unique_ptr<ClickDevice>()>;

    explicit MouseEvents(CursorReaders cursorReaders = {}, OtherDevices otherDevices = {})
        : cursorReaders_(std::move(cursorReaders)),
          otherDevices_(std::move(otherDevices)) {}

    std::unique_ptr<platform::MouseSession> openSession() override;

  private:
    const CursorReaders cursorReaders_;
    const OtherDevices otherDevices_;
};

} // namespace corvane::wayland
