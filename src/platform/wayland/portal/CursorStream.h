#pragma once

#include "platform/wayland/portal/PipeWire.h"
#include "platform/wayland/portal/Session.h"
#include "support/Geometry.h"

#include <functional>
#include <optional>

namespace corvane::wayland::portal {

/// The cast of one monitor. Used while its PipeWire loop does not run, and by the loop.
class CursorStream {
  public:
    /// Receives the cursor's position in global display space with each frame, or that the cursor
    /// is on another monitor; on the loop's thread.
    using Report = std::function<void(std::optional<Point> position)>;

    /// The core outlives the stream.
    CursorStream(const PipeWire &pipeWire, pw_core *core, const Stream &stream, Report report);
    ~CursorStream();

    CursorStream(const CursorStream &) = delete;
    CursorStream &operator=(const CursorStream &) = delete;

  private:
    void negotiate(const spa_pod &format);
    void readFrames();

    static const pw_stream_events events;

    const PipeWire &pipeWire_;
    const Rectangle frame_;
    const Report report_;
    pw_stream *const stream_;
    spa_hook listener_{};
    /// Of the pictures, which are larger than the frame on a scaled monitor.
    Size pictureSize_;
};

} // namespace corvane::wayland::portal
