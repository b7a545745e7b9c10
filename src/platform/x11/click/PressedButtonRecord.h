#pragma once

#include "platform/x11/connection/XcbConnection.h"

#include <cstdint>
#include <optional>

#include <sys/types.h>

namespace corvane::x11 {

/// Tells, on the X server itself, which button this process has pressed. The server keeps the mark
/// when the process dies without a word, so that the button can be released by whoever comes next.
/// One for a connection, which outlives it.
class ButtonMark {
  public:
    explicit ButtonMark(const XcbConnection &connection);
    /// Takes the mark off the server.
    ~ButtonMark();

    ButtonMark(const ButtonMark &) = delete;
    ButtonMark &operator=(const ButtonMark &) = delete;

    /// To be sent before the press, in the same stream of requests.
    void setPressed(std::uint8_t button) const;
    /// To be sent after the release, in the same stream of requests.
    void setReleased() const;

  private:
    const XcbConnection &connection_;
    const xcb_atom_t property_;
    const xcb_window_t window_;
};

/// Releases every button whose mark was left by the process `owner`, or by whatever process where
/// none is named, and takes those marks off the server. A button that nobody marked, such as one
/// the user holds, stays as it is. Whether there was a button to release.
bool releaseMarkedButtons(const XcbConnection &connection,
                          std::optional<pid_t> owner = std::nullopt);

} // namespace corvane::x11
