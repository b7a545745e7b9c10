#pragma once

#include "platform/MouseEvents.h"
#include "platform/linux/XcbConnection.h"

#include <cstdint>
#include <optional>

namespace corvane::x11 {

/// One thread's access to the pointer, over its own connection.
class LinuxMouseSession : public platform::MouseSession {
  public:
    /// Without a connection every operation fails.
    explicit LinuxMouseSession(std::unique_ptr<XcbConnection> connection);
    ~LinuxMouseSession() override;

    LinuxMouseSession(const LinuxMouseSession &) = delete;
    LinuxMouseSession &operator=(const LinuxMouseSession &) = delete;

    std::optional<Point> cursorLocation() override;
    std::unique_ptr<platform::MouseEventSource> createEventSource() override;

  private:
    bool isUsable() const;
    void followMapping();
    std::optional<std::uint8_t> readLeftButton() const;

    std::unique_ptr<XcbConnection> connection_;
    /// Whether the server takes synthetic events.
    bool isPressable_ = false;
    /// The physical button that is the user's left one; absent where no button is.
    std::optional<std::uint8_t> leftButton_;
};

} // namespace corvane::x11
