#pragma once

#include "platform/wayland/connection/Connection.h"

#include <string>
#include <vector>

namespace corvane::desktop {

/// What only KWin offers a test: its keyboard, its windows' places and its screenshots.
class KWinControl {
  public:
    /// The connection outlives it.
    explicit KWinControl(const wayland::Connection &connection) : connection_(connection) {}

    /// False where the command is another one, or fails.
    bool carryOut(const std::vector<std::string> &fields) const;

  private:
    const wayland::Connection &connection_;
};

} // namespace corvane::desktop
