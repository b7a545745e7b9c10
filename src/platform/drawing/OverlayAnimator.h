#pragma once

#include "platform/drawing/AnimationFrames.h"
#include "platform/linux/timing/Clock.h"
#include "platform/linux/timing/ExactTimer.h"

#include <cstddef>
#include <functional>
#include <vector>

namespace corvane::drawing {

class OverlayPlayback;

/// How a window system keeps frames away from its clicks; by default it does not.
struct FramePacing {
    /// Called before frames are shown.
    std::function<void()> beforeFrames = [] {};
    /// The first moment, from the given one on, at which frames may be shown.
    std::function<platform::Instant(platform::Instant)> deferred = std::identity();
};

/// Advances all running animations together, about sixty times a second. Main thread.
class OverlayAnimator {
  public:
    /// The animator outlives every playback.
    explicit OverlayAnimator(FramePacing pacing = {});

    OverlayAnimator(const OverlayAnimator &) = delete;
    OverlayAnimator &operator=(const OverlayAnimator &) = delete;
    ~OverlayAnimator() = default;

    /// Shows frames that are due within 5 ms. To be called while the program is awake anyway, which
    /// saves a wake-up of their own.
    void advanceWhileAwake();

  private:
    friend class OverlayPlayback;

    void add(OverlayPlayback &playback);
    void remove(OverlayPlayback &playback);
    void advance(platform::Instant now);
    void callCompletions();
    void setTimer();

    const FramePacing pacing_;
    const linux::Clock clock_{};
    std::vector<OverlayPlayback *> running_;
    /// Over, with a completion that is still to be called.
    std::vector<OverlayPlayback *> over_;
    platform::Instant lastAdvance_{};
    linux::ExactTimer timer_;
};

/// One run of an animation, from now on. Destroying it ends it without completion. Main thread.
class OverlayPlayback {
  public:
    /// Shows the frame with that number.
    using Show = std::function<void(std::size_t index)>;

    OverlayPlayback(OverlayAnimator &animator, const Animation &animation, Show show,
                    std::function<void()> completion);
    ~OverlayPlayback();

    OverlayPlayback(const OverlayPlayback &) = delete;
    OverlayPlayback &operator=(const OverlayPlayback &) = delete;

    const Animation &animation() const { return animation_; }

    /// Continues with the same animation over another scene.
    void changeTo(Show show);

  private:
    friend class OverlayAnimator;

    /// Shows the frame for that time; false once it is the last one.
    bool advanceTo(platform::Instant now);
    void complete();

    OverlayAnimator &animator_;
    const Animation animation_;
    const FrameTimes times_;
    Show show_;
    std::function<void()> completion_;
    const platform::Instant start_;
    std::size_t index_ = 0;
};

} // namespace corvane::drawing
