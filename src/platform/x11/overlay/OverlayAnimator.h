#pragma once

#include "platform/linux/timing/Clock.h"
#include "platform/linux/timing/ExactTimer.h"
#include "platform/x11/overlay/OverlayRenderer.h"
#include "platform/x11/overlay/OverlaySurface.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <vector>

namespace corvane::x11 {

class OverlayPlayback;
class RequestSender;

/// Advances all running animations together, about sixty times a second. Main thread.
class OverlayAnimator {
  public:
    /// The sender, to which the frames are drawing that may be deferred, outlives the animator,
    /// which outlives every playback.
    explicit OverlayAnimator(RequestSender &sender);
    ~OverlayAnimator();

    OverlayAnimator(const OverlayAnimator &) = delete;
    OverlayAnimator &operator=(const OverlayAnimator &) = delete;

    /// Advances a playback until it is over, then calls its completion.
    void add(OverlayPlayback &playback);
    void remove(OverlayPlayback &playback);

    platform::Instant now() const { return clock_.now(); }
    std::size_t runningCount() const { return running_.size(); }

  private:
    void advanceWhileAwake();
    void advance(platform::Instant now);
    void callCompletions();
    void setTimer();

    RequestSender &sender_;
    const linux::Clock clock_{};
    std::vector<OverlayPlayback *> running_;
    /// Over, with a completion that is still to be called.
    std::vector<OverlayPlayback *> over_;
    platform::Instant lastAdvance_{};
    linux::ExactTimer timer_;
};

/// An animation on a surface, from now on. Destroying it ends it without completion. Main thread.
class OverlayPlayback {
  public:
    /// The animator and the surface outlive the playback. A surface that is replaced with each
    /// change shows one frame all the time, or none where `isShown` is false.
    OverlayPlayback(OverlayAnimator &animator, OverlaySurface &surface,
                    std::shared_ptr<OverlayFrames> frames, std::function<void()> completion,
                    bool isShown);
    ~OverlayPlayback();

    OverlayPlayback(const OverlayPlayback &) = delete;
    OverlayPlayback &operator=(const OverlayPlayback &) = delete;

    const Animation &animation() const { return frames_->frames().animation(); }

    /// Continues with the same animation over another scene.
    void changeTo(std::shared_ptr<OverlayFrames> frames);

    /// Shows the frame for that time; false once it is the last one.
    bool advanceTo(platform::Instant now);

    void complete();

  private:
    bool isStill() const { return surface_.kind().isReplaced; }
    void show(std::size_t index);

    OverlayAnimator &animator_;
    OverlaySurface &surface_;
    std::shared_ptr<OverlayFrames> frames_;
    std::function<void()> completion_;
    const platform::Instant start_;
    std::size_t index_ = 0;
};

} // namespace corvane::x11
