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

    /// Whether the event, once sent, has been carried out: another program's grab of the pointer
    /// may hold it up. True where no program can do that, and where the system does not answer.
    virtual bool hasTakenEffect() = 0;
};

/// Where synthetic events come from, in the hardware-input state.
class MouseEventSource {
  public:
    virtual ~MouseEventSource() = default;

    /// An event at `location` in global display space; null when it cannot be created.
    virtual std::unique_ptr<MouseEvent> createMouseEvent(MouseEventType type, Point location) = 0;
};

/// The mouse at one moment, once every event sent by the session has been carried out, except those
/// another program's grab of the pointer holds up.
struct MouseState {
    /// In global display space; nothing when it cannot be read.
    std::optional<Point> cursorLocation{};
    /// By the system's own account; nothing where it gives none.
    std::optional<bool> isLeftButtonDown{};
};

/// The mouse as one click run uses it. Everything on the thread that opened it.
class MouseSession {
  public:
    virtual ~MouseSession() = default;

    virtual MouseState state() = 0;

    /// Null when it cannot be created.
    virtual std::unique_ptr<MouseEventSource> createEventSource() = 0;
};

/// Gives every click run a session of its own.
class MouseEvents {
  public:
    virtual ~MouseEvents() = default;

    /// A session for the calling thread; never null. Without a connection its operations fail.
    virtual std::unique_ptr<MouseSession> openSession() = 0;
};

} // namespace corvane::platform
