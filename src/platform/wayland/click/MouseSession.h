#pragma once

#include "platform/MouseEvents.h"
#include "platform/wayland/click/ClickDevice.h"
#include "platform/wayland/click/CursorProbe.h"
#include "platform/wayland/click/CursorReader.h"
#include "platform/wayland/click/MouseEvents.h"
#include "platform/wayland/click/PressedButtonRecord.h"
#include "platform/wayland/connection/Connection.h"

#include <memory>
#include <optional>

namespace corvane::wayland {

/// One thread's access to the pointer, over its own connection. A connection that is lost while the
/// compositor lives is replaced; without one every operation fails.
class MouseSession : public platform::MouseSession {
  public:
    /// Without a reader the cursor is found by a probe.
    MouseSession(std::unique_ptr<CursorReader> cursor, MouseEvents::OtherDevices otherDevices);

    std::optional<Point> readyPosition() override;
    std::unique_ptr<platform::MouseEventSource> createEventSource() override;

    void press();
    /// Releases the button also where the connection that pressed it is lost.
    void release();

  private:
    /// Whether the compositor has carried it out.
    bool releaseOnce() const;
    bool isUsable() const { return device_ && !device_->isLost() && !connection_->isLost(); }
    bool ensureUsable();
    std::optional<Point> cursorPosition() const;
    void connect();

    const PressedButtonRecord record_{PressedButtonRecord::Missing::create};
    bool isPressed_ = false;
    /// As read last.
    std::optional<Point> position_;
    const MouseEvents::OtherDevices otherDevices_;
    std::unique_ptr<Connection> connection_;
    std::unique_ptr<ClickDevice> device_;
    const std::unique_ptr<CursorReader> reader_;
    /// Null where there is a reader.
    std::unique_ptr<CursorProbe> probe_;
};

} // namespace corvane::wayland
