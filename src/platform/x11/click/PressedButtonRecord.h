#pragma once

#include "platform/x11/connection/WindowProperty.h"

#include <cstdint>
#include <optional>

#include <sys/types.h>

namespace corvane::x11 {

/// Records in a window property which button this process has pressed. The server keeps the record
/// when the process dies, so that the watchdog or the next start can release the button. One per
/// connection, which outlives it.
class PressedButtonRecord {
  public:
    explicit PressedButtonRecord(const XcbConnection &connection);
    /// Removes the record from the server.
    ~PressedButtonRecord();

    PressedButtonRecord(const PressedButtonRecord &) = delete;
    PressedButtonRecord &operator=(const PressedButtonRecord &) = delete;

    /// To be sent before the press, on the same connection.
    void setPressed(std::uint8_t button) const { write(button); }
    /// To be sent after the release, on the same connection.
    void setReleased() const { write(Content::noButton); }

    struct Content {
        static constexpr std::uint8_t noButton = 0;

        std::uint8_t button = noButton;
        /// The process that has pressed it.
        std::uint32_t owner = 0;

        /// Absent when the property is no such record.
        static std::optional<Content> in(const PropertyValue &property);
    };

  private:
    void write(std::uint8_t button) const;

    const XcbConnection &connection_;
    const xcb_window_t window_;
};

/// Releases every button that the process `owner`, or any process when none is named, recorded as
/// pressed and left so, and removes those records. A button without a record, such as one the user
/// holds, stays as it is. Whether a button was released.
bool releaseRecordedButtons(const XcbConnection &connection,
                            std::optional<pid_t> owner = std::nullopt);

} // namespace corvane::x11
