#pragma once

#include "support/Geometry.h"

#include <optional>

namespace corvane::wayland {

/// Where the pointer is. Used by one thread, that of a session.
class CursorReader {
  public:
    virtual ~CursorReader() = default;

    /// Global display space; nothing when the position cannot be read now.
    virtual std::optional<Point> position() = 0;
};

} // namespace corvane::wayland
