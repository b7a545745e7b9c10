#include "platform/x11/overlay/OverlayAnimation.h"

#include <utility>

namespace corvane::x11 {

OverlayAnimation::OverlayAnimation(const OverlayVisual &visual, drawing::AnimationFrames frames)
    : visual_(visual),
      frames_(std::move(frames)),
      images_(frames_.count()) {}

const OverlayImage &OverlayAnimation::image(std::size_t index) {
    auto &image = images_.at(index);
    if (!image) {
        image = painted(index);
    }
    return *image;
}

std::unique_ptr<OverlayImage> OverlayAnimation::painted(std::size_t index) const {
    const drawing::OverlayScene &scene = frames_.scene();
    const QImage pixels = frames_.paint(index);
    auto image = std::make_unique<OverlayImage>(visual_, scene.part.size());
    if (scene.blending == drawing::OverlayScene::Blending::cutOut) {
        image->cutOut(pixels);
    }
    if (const auto colour = frames_.onlyColour()) {
        image->fill(*colour);
    } else {
        image->put(pixels, QPoint());
    }
    return image;
}

} // namespace corvane::x11
