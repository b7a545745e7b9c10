#pragma once

#include "platform/drawing/AnimationFrames.h"
#include "platform/wayland/connection/Connection.h"
#include "platform/wayland/connection/SharedImage.h"

#include <QTimer>

#include <chrono>
#include <functional>
#include <memory>
#include <vector>

namespace corvane::wayland {

class OverlayAnimator;

/// The frames of an animation, each painted when it is first shown and then shared by everything
/// that plays the same.
class SharedFrames {
  public:
    SharedFrames(wl_shm *sharedMemory, drawing::AnimationFrames frames);

    const drawing::AnimationFrames &frames() const { return frames_; }
    std::shared_ptr<const SharedImage> image(std::size_t index);

  private:
    wl_shm *const sharedMemory_;
    const drawing::AnimationFrames frames_;
    std::vector<std::shared_ptr<const SharedImage>> images_;
};

/// One run of an animation, from now on. Destroying it ends it without completion. Main thread.
class OverlayPlayback {
  public:
    using Show = std::function<void(const std::shared_ptr<const SharedImage> &image)>;

    OverlayPlayback(OverlayAnimator &animator, std::shared_ptr<SharedFrames> frames, Show show,
                    std::function<void()> completion);
    ~OverlayPlayback();

    OverlayPlayback(const OverlayPlayback &) = delete;
    OverlayPlayback &operator=(const OverlayPlayback &) = delete;

    /// Goes on with the same animation over another scene.
    void changeTo(const drawing::OverlayScene &scene);

    /// Shows the frame of this moment; whether there are more to come.
    bool advance();

    /// Calls the completion, which may destroy the playback.
    void complete();

  private:
    using Clock = std::chrono::steady_clock;

    void show(std::size_t index);

    OverlayAnimator &animator_;
    std::shared_ptr<SharedFrames> frames_;
    const Show show_;
    std::function<void()> completion_;
    const Clock::time_point start_ = Clock::now();
    std::size_t index_ = 0;
};

/// One timer for all animations that are running. Main thread.
class OverlayAnimator {
  public:
    /// Connection and painter outlive the animator, which outlives every playback.
    OverlayAnimator(const Connection &connection, const drawing::OverlayPainter &painter);

    std::unique_ptr<OverlayPlayback> play(const drawing::OverlayScene &scene,
                                          const Animation &animation, OverlayPlayback::Show show,
                                          std::function<void()> completion);

    /// Shared with others that play the same.
    std::shared_ptr<SharedFrames> frames(const drawing::OverlayScene &scene,
                                         const Animation &animation);

    void add(OverlayPlayback &playback);
    void remove(OverlayPlayback &playback);

  private:
    void advance();

    const Connection &connection_;
    const drawing::OverlayPainter &painter_;
    std::vector<OverlayPlayback *> running_;
    /// Over, but not completed yet.
    std::vector<OverlayPlayback *> over_;
    /// Those played last.
    std::vector<std::shared_ptr<SharedFrames>> known_;
    QTimer timer_;
};

} // namespace corvane::wayland
