#pragma once

#include "platform/x11/overlay/OverlayAnimation.h"
#include "platform/x11/overlay/OverlayAnimator.h"
#include "platform/x11/overlay/OverlaySurface.h"

#include <cstddef>
#include <functional>
#include <memory>

namespace corvane::x11 {

/// One run of an animation on a surface, from now on. Destroying it ends it without completion.
/// Main thread.
class OverlayPlayback {
  public:
    /// The animator and the surface outlive the playback.
    OverlayPlayback(OverlayAnimator &animator, OverlaySurface &surface,
                    std::shared_ptr<OverlayAnimation> animation, std::function<void()> completion);
    ~OverlayPlayback();

    OverlayPlayback(const OverlayPlayback &) = delete;
    OverlayPlayback &operator=(const OverlayPlayback &) = delete;

    const Animation &animation() const { return animation_->frames().animation(); }

    /// Goes on with the same animation over another scene.
    void changeTo(std::shared_ptr<OverlayAnimation> animation);

    /// Shows the picture of that time; whether there are more to come.
    bool showAt(platform::Instant now);

    /// Calls the completion.
    void complete();

  private:
    void show(std::size_t index);

    OverlayAnimator &animator_;
    OverlaySurface &surface_;
    std::shared_ptr<OverlayAnimation> animation_;
    std::function<void()> completion_;
    const platform::Instant start_;
    std::size_t index_ = 0;
};

} // namespace corvane::x11
