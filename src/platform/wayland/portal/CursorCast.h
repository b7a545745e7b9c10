#pragma once

#include "platform/wayland/portal/Session.h"
#include "support/Geometry.h"

#include <memory>
#include <optional>

namespace corvane::wayland::portal {

/// Casts the session's monitors for as long as it exists, for the cursor's position alone: the
/// pictures are never looked at. The position is that of the last frame, up to 1/60 s old. Used by
/// one thread.
class CursorCast {
  public:
    /// The session is used while casting starts only.
    explicit CursorCast(const Session &session);
    ~CursorCast();

    CursorCast(const CursorCast &) = delete;
    CursorCast &operator=(const CursorCast &) = delete;

    /// Whether PipeWire's library is there, without which nothing can be cast.
    static bool isPossible();

    bool isStarted() const { return cast_ != nullptr; }

    /// Global display space; nothing before the first frame and while the cursor is on a monitor
    /// that is not cast.
    std::optional<Point> position() const;

  private:
    class Cast;

    std::unique_ptr<Cast> cast_;
};

} // namespace corvane::wayland::portal
