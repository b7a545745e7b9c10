#pragma once

#include "platform/drawing/AnimationFrames.h"
#include "platform/x11/overlay/OverlayImage.h"

#include <cstddef>
#include <memory>
#include <vector>

namespace corvane::x11 {

/// The frames of an animation as images on the server, each painted when it is first shown and then
/// shared by everything that plays the same.
class OverlayAnimation {
  public:
    /// The frames' painter and the visual outlive the animation.
    OverlayAnimation(const OverlayVisual &visual, drawing::AnimationFrames frames);

    const drawing::AnimationFrames &frames() const { return frames_; }
    const OverlayImage &image(std::size_t index);

  private:
    std::unique_ptr<OverlayImage> painted(std::size_t index) const;

    const OverlayVisual &visual_;
    const drawing::AnimationFrames frames_;
    std::vector<std::unique_ptr<OverlayImage>> images_;
};

} // namespace corvane::x11
