#pragma once

#include "platform/ContinuousClock.h"
#include "platform/MouseEvents.h"

#include <condition_variable>
#include <cstddef>
#include <deque>
#include <mutex>
#include <optional>
#include <thread>
#include <vector>

namespace corvane::testing {

/// A mouse event as it was sent.
struct PostedMouseEvent {
    platform::MouseEventType type;
    Point location;
    std::int64_t clickState;
    platform::Instant time;
    std::thread::id thread;
};

/// What a mouse refuses to do.
struct MouseFaults {
    bool noCursorLocation = false;
    bool noEventSource = false;
    bool noMouseDown = false;
    bool noMouseUp = false;
};

/// A mouse with a scripted cursor that keeps every event sent. Any thread, except that what a
/// session makes is checked to stay on the thread that opened it.
class RecordingMouseEvents : public platform::MouseEvents {
  public:
    explicit RecordingMouseEvents(const platform::ContinuousClock &clock) : clock_(clock) {}

    std::unique_ptr<platform::MouseSession> openSession() override;

    /// Where the cursor is from now on.
    void setCursor(Point cursor);
    /// Where the cursor is at the next readings, one place each; afterwards it stays at the last.
    void scriptCursor(const std::vector<Point> &places);
    void setFaults(const MouseFaults &faults);
    /// From now on another program's grab holds up every event sent, or no longer.
    void setHeldUp(bool isHeldUp);
    /// From now on the user holds the left button of the mouse itself, or no longer.
    void setHeldByUser(bool isHeld);

    std::vector<PostedMouseEvent> posted() const;
    /// Waits until that many events have been posted; false when they were not in time.
    [[nodiscard]] bool awaitPosted(std::size_t count) const;
    /// Whether more downs than ups were sent.
    bool isButtonPressed() const;

    std::size_t cursorReadings() const;
    std::size_t openedSessions() const;
    std::size_t openSessions() const;

  private:
    class Session;
    class Source;
    class Event;

    std::optional<Point> nextCursorLocation();
    /// Whether the button is down as far as the system knows.
    bool account() const;
    bool isPressed() const;

    const platform::ContinuousClock &clock_;
    mutable std::mutex mutex_;
    mutable std::condition_variable changed_;
    Point cursor_{100, 100};
    std::deque<Point> script_;
    MouseFaults faults_;
    std::optional<bool> accountWhileHeldUp_;
    bool isHeldByUser_ = false;
    std::vector<PostedMouseEvent> posted_;
    std::size_t cursorReadings_ = 0;
    std::size_t openedSessions_ = 0;
    std::size_t openSessions_ = 0;
};

} // namespace corvane::testing
