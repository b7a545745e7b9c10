#pragma once

#include "platform/wayland/connection/Connection.h"

#include <memory>
#include <string>
#include <vector>

namespace corvane::desktop {

/// What a compositor offers a test beside windows and a mouse: its keyboard, its windows' places
/// and its screenshots.
class Control {
  public:
    /// For the compositor at hand. The connection outlives it.
    static std::unique_ptr<Control> make(const wayland::Connection &connection);

    virtual ~Control() = default;

    /// False where the command is another one, or fails.
    virtual bool carryOut(const std::vector<std::string> &fields) const = 0;
};

} // namespace corvane::desktop
