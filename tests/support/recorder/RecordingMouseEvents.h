#pragma once

#include "platform/ContinuousClock.h"
#include "platform/MouseEvents.h"

#include <condition_variable>
#include <cstddef>
#include <deque>
#include <functional>
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
    /// Where the cursor is at the next clicks, one place each; afterwards it stays at the last.
    void scriptCursor(const std::vector<Point> &places);
    void setFaults(const MouseFaults &faults);
    /// From now on another program's grab holds up every event sent, or no longer.
    void setHeldUp(bool isHeldUp);
    /// From now on the user holds the left button of the mouse itself, or no longer.
    void setHeldByUser(bool isHeld);
    /// Called once, on the run's thread, when the events of the next click have been created and
    /// none is posted.
    void onNextCreation(std::function<void()> work);
    /// Called once, on the run's thread, while the next press is being posted.
    void onNextPress(std::function<void()> work);

    std::vector<PostedMouseEvent> posted() const;
    /// Waits until that many events have been posted; false when they were not in time.
    [[nodiscard]] bool awaitPosted(std::size_t count) const;
    /// Whether more downs than ups were sent.
    bool isButtonPressed() const;

    /// When a session was asked whether it is ready.
    std::vector<platform::Instant> readings() const;
    std::size_t openedSessions() const;
    std::size_t openSessions() const;

  private:
    class Session;
    class Source;
    class Event;

    std::optional<Point> readyPosition();
    void carryOut(std::function<void()> &work);
    /// Whether the button is down as far as the system knows.
    bool isDown() const;
    /// Whether more downs than ups were sent.
    bool isPressed() const;

    const platform::ContinuousClock &clock_;
    mutable std::mutex mutex_;
    mutable std::condition_variable changed_;
    Point cursor_{100, 100};
    std::deque<Point> script_;
    MouseFaults faults_;
    std::optional<bool> isDownWhileHeldUp_;
    bool isHeldByUser_ = false;
    std::function<void()> onNextCreation_;
    std::function<void()> onNextPress_;
    std::vector<PostedMouseEvent> posted_;
    std::vector<platform::Instant> readings_;
    std::size_t openedSessions_ = 0;
    std::size_t openSessions_ = 0;
};

} // namespace corvane::testing
