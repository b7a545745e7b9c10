#include "platform/x11/overlay/OverlayRenderer.h"

#include <algorithm>
#include <utility>

namespace corvane::x11 {

using Blending = drawing::OverlayScene::Blending;

OverlayFrames::OverlayFrames(const OverlayVisual &visual, drawing::AnimationFrames frames)
    : visual_(visual),
      frames_(std::move(frames)),
      images_(frames_.count()) {}

const OverlayImage &OverlayFrames::image(std::size_t index) {
    auto &image = images_.at(index);
    if (!image) {
        image = paint(index);
    }
    return *image;
}

std::unique_ptr<OverlayImage> OverlayFrames::paint(std::size_t index) const {
    const drawing::OverlayScene &scene = frames_.scene();
    const QImage pixels = frames_.paint(index);
    auto image = std::make_unique<OverlayImage>(visual_, scene.part.size());
    if (scene.blending == Blending::cutOut) {
        image->cutOut(pixels);
    }
    if (const auto colour = frames_.onlyColour()) {
        image->fill(*colour);
    } else {
        image->put(pixels, QPoint());
    }
    return image;
}

std::unique_ptr<OverlayImage> OverlayRenderer::paint(const drawing::OverlayScene &scene) const {
    auto image = std::make_unique<OverlayImage>(visual_, scene.part.size());
    const QImage pixels = scene.isEmpty() ? QImage() : painter_.paint(scene, scene.part);
    if (!pixels.isNull()) {
        image->put(pixels, QPoint());
    }
    if (scene.blending == Blending::cutOut) {
        image->cutOut(pixels);
    }
    return image;
}

void OverlayRenderer::repaint(OverlayImage &image, const drawing::OverlayScene &scene,
                              const QRegion &region) const {
    for (const QRect &piece : region) {
        image.put(painter_.paint(scene, piece), piece.topLeft() - scene.part.topLeft());
    }
}

std::shared_ptr<OverlayFrames> OverlayRenderer::frames(const drawing::OverlayScene &scene,
                                                       const Animation &animation) {
    const auto known = std::ranges::find_if(
        kept_, [&](const auto &kept) { return kept->frames().match(scene, animation); });
    if (known != kept_.end()) {
        return *known;
    }
    constexpr std::size_t mostKept = 4;
    if (kept_.size() == mostKept) {
        kept_.erase(kept_.begin());
    }
    kept_.push_back(std::make_shared<OverlayFrames>(
        visual_, drawing::AnimationFrames(painter_, scene, animation)));
    return kept_.back();
}

} // namespace corvane::x11
