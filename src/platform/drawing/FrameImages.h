#pragma once

#include "platform/drawing/AnimationFrames.h"

#include <algorithm>
#include <cstddef>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace corvane::drawing {

/// The frames of animations as images of a window system, each painted when it is first shown and
/// shared by all overlays that play the same. Main thread.
template <typename Image>
class FrameImages {
  public:
    using Paint = std::function<std::shared_ptr<const Image>(const AnimationFrames &frames,
                                                             std::size_t index)>;

    /// Those of one animation.
    class Sequence {
      public:
        Sequence(AnimationFrames frames, Paint paint)
            : frames_(std::move(frames)),
              paint_(std::move(paint)),
              images_(frames_.count()) {}

        const AnimationFrames &frames() const { return frames_; }

        const std::shared_ptr<const Image> &image(std::size_t index) {
            auto &image = images_.at(index);
            if (!image) {
                image = paint_(frames_, index);
            }
            return image;
        }

      private:
        const AnimationFrames frames_;
        const Paint paint_;
        std::vector<std::shared_ptr<const Image>> images_;
    };

    /// The painter outlives every sequence; `paint` makes an image of a frame.
    FrameImages(const OverlayPainter &painter, Paint paint)
        : painter_(painter),
          paint_(std::move(paint)) {}

    /// Those of an animation over a scene. The last four are kept.
    std::shared_ptr<Sequence> of(const OverlayScene &scene, const Animation &animation) {
        const auto known = std::ranges::find_if(kept_, [&](const auto &sequence) {
            return sequence->frames().match(scene, animation);
        });
        if (known != kept_.end()) {
            return *known;
        }
        constexpr std::size_t mostKept = 4;
        if (kept_.size() == mostKept) {
            kept_.erase(kept_.begin());
        }
        kept_.push_back(
            std::make_shared<Sequence>(AnimationFrames(painter_, scene, animation), paint_));
        return kept_.back();
    }

  private:
    const OverlayPainter &painter_;
    const Paint paint_;
    std::vector<std::shared_ptr<Sequence>> kept_;
};

} // namespace corvane::drawing
