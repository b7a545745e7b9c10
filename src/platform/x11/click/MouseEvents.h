#pragma once

#include "platform/MouseEvents.h"
#include "platform/x11/click/PressedButtonRecord.h"
#include "platform/x11/connection/XcbConnection.h"

#include <cstdint>
#include <optional>

namespace corvane::x11 {

/// One thread's access to the pointer, over its own connection. A connection that is lost while the
/// server lives is replaced; without one the session is never ready.
class MouseSession : public platform::MouseSession {
  public:
    /// The connection to the server outlives the session.
    explicit MouseSession(const XcbConnection &server);
    ~MouseSession() override;

    MouseSession(const MouseSession &) = delete;
    MouseSession &operator=(const MouseSession &) = delete;

    std::optional<Point> readyPosition() override;
    std::unique_ptr<platform::MouseEventSource> createEventSource() override;

    /// Records the button as pressed, then presses it.
    void press(std::uint8_t button);
    /// Releases the button also where the connection that pressed it is lost.
    void release(std::uint8_t button);

  private:
    bool isUsable() const;
    bool ensureUsable();
    void connect();
    void sendButton(std::uint8_t type, std::uint8_t button) const;
    void followMapping();
    std::optional<std::uint8_t> readLeftButton() const;

    const XcbConnection &server_;
    std::unique_ptr<XcbConnection> connection_;
    std::optional<PressedButtonRecord> record_;
    /// Whether the server takes synthetic events.
    bool isPressable_ = false;
    /// The physical button that is the user's left one; absent where no button is.
    std::optional<std::uint8_t> leftButton_;
    /// Whether this session has pressed the button and not released it.
    bool isPressed_ = false;
    /// Sent right behind a press, so that its reply is there when the release is due.
    std::optional<xcb_query_pointer_cookie_t> pointerRequest_;
};

/// The pointer of the X server, pressed through its test extension.
class MouseEvents : public platform::MouseEvents {
  public:
    /// Sessions connect to the same server; the connection outlives this.
    explicit MouseEvents(const XcbConnection &connection) : connection_(connection) {}

    std::unique_ptr<platform::MouseSession> openSession() override;

  private:
    const XcbConnection &connection_;
};

} // namespace corvane::x11
