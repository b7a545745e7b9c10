#pragma once

#include "platform/OverlayWindows.h"
#include "support/recorder/RecordingAlerts.h"

#include <vector>

namespace corvane::testing {

/// One overlay as it was used, and a user's hands on it. Main thread.
class RecordedOverlay {
  public:
    RecordedOverlay(const BorderlessWindow &initialWindow, platform::OverlayEvents events)
        : window(initialWindow),
          frame(initialWindow.frame),
          events_(std::move(events)) {}

    /// As it was created.
    const BorderlessWindow window;
    /// Where it is now; screen space.
    Rectangle frame;
    /// Every frame set after the creation.
    std::vector<Rectangle> framesSet;
    Drawing drawing;
    /// How often a drawing was set.
    int drawingsSet = 0;
    bool isVisible = false;
    /// Whether it has the keyboard; at most one overlay has.
    bool isKey = false;
    bool isDestroyed = false;
    /// Every animation played.
    std::vector<Animation> plays;

    /// Events do not arrive while one of these alerts is open; none for always.
    const RecordingAlerts *deafUnder = nullptr;
    /// Whether the Escape key arrives at a visible overlay that has not the keyboard.
    bool hasEscapeKey = false;

    /// Sends the event when the overlay listens and is visible; points in screen space.
    void mouseDown(Point point);
    void mouseDragged(Point point);
    void mouseUp(Point point);
    void keyDown(platform::Key key);

    /// Ends the animations under way and calls their completions.
    void completeAnimations();
    bool isAnimating() const { return !completions_.empty(); }

  private:
    friend class RecordingOverlayWindows;

    bool hears() const;

    platform::OverlayEvents events_;
    std::vector<std::function<void()>> completions_;
};

} // namespace corvane::testing
