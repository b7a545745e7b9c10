#pragma once

#include "support/Geometry.h"

#include <cstdint>
#include <memory>
#include <optional>

namespace corvane::platform {

enum class MouseEventType { leftMouseDown, leftMouseUp };

/// One synthetic mouse event, not sent until posted.
class MouseEvent {
  public:
    virtual ~MouseEvent() = default;

    /// 1 for a single click, 2 for the second of a double click.
    virtual void setClickState(std::int64_t state) = 0;

    /// Sends the event as if the hardware had made it. A failure is silent.
    virtual void post() = 0;
};

/// Where synthetic events come from, in the hardware-input state.
class MouseEventSource {
  public:
    virtual ~MouseEventSource() = default;

    /// An event at `location` in global display space; null when it cannot be created.
    virtual std::unique_ptr<MouseEvent> createMouseEvent(MouseEventType type, Point location) = 0;
};

/// The mouse as one click run uses it. Everything on the thread that opened it.
class MouseSession {
  public:
    virtual ~MouseSession() = default;

    /// The cursor's position in global display space, once the mouse is ready for the session's
    /// next event. Nothing while it is not: the position cannot be read, the user holds the left
    /// button, or an event posted before has not arrived because another program has grabbed the
    /// pointer.
    virtual std::optional<Point> readyPosition() = 0;

    /// Never null. Where the system has no source to give, events are created without one.
    virtual std::unique_ptr<MouseEventSource> createEventSource() = 0;
};

/// Gives every click run a session of its own.
class MouseEvents {
  public:
    virtual ~MouseEvents() = default;

    /// A session for the calling thread; never null. Without a connection it is never ready.
    virtual std::unique_ptr<MouseSession> openSession() = 0;
};

} // namespace corvane::platform
