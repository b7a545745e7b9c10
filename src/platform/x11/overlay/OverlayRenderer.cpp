#include "platform/x11/overlay/OverlayRenderer.h"

#include <utility>

namespace corvane::x11 {

using Blending = drawing::OverlayScene::Blending;

OverlayRenderer::OverlayRenderer(const OverlayVisual &visual, drawing::SymbolImages &symbols)
    : visual_(visual),
      painter_(symbols),
      frames_(painter_, [this](const drawing::AnimationFrames &frames, std::size_t index) {
          return paint(frames, index);
      }) {}

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
        image.put(painter_.paint(scene, piece.translated(scene.part.topLeft())), piece.topLeft());
    }
}

std::shared_ptr<const OverlayImage> OverlayRenderer::paint(const drawing::AnimationFrames &frames,
                                                           std::size_t index) const {
    const drawing::OverlayScene &scene = frames.scene();
    const QImage pixels = frames.paint(index);
    auto image = std::make_shared<OverlayImage>(visual_, scene.part.size());
    if (scene.blending == Blending::cutOut) {
        image->cutOut(pixels);
    }
    if (const auto colour = frames.onlyColour()) {
        image->fill(*colour);
    } else {
        image->put(pixels, QPoint());
    }
    return image;
}

std::shared_ptr<const void> OverlayRenderer::takeStill() const {
    constexpr long most = 4;
    return stills_.use_count() <= most ? stills_ : nullptr;
}

void OverlayCanvas::paint(const drawing::OverlayScene &scene) {
    if (canRepaint(scene)) {
        const QRegion changed = drawing::OverlayPainter::difference(painted_, scene);
        renderer_.repaint(*image_, scene, changed);
        surface_->paint(*image_, changed);
    } else {
        image_ = renderer_.paint(scene);
        surface_->paint(*image_);
    }
    painted_ = scene;
    isBlank_ = isBlank_ && scene.isEmpty();
}

drawing::OverlayPlayback::Show OverlayCanvas::frames(const drawing::OverlayScene &scene,
                                                     const Animation &animation) {
    auto frames = renderer_.frames(scene, animation);
    if (surface_->kind().isReplaced) {
        return still(frames);
    }
    return [this, frames = std::move(frames)](std::size_t index) {
        surface_->paint(*frames->image(index));
    };
}

/// Each frame would take a new window, so one stands for all of them, and only where there are not
/// many already.
drawing::OverlayPlayback::Show
OverlayCanvas::still(const std::shared_ptr<drawing::FrameImages<OverlayImage>::Sequence> &frames) {
    auto share = renderer_.takeStill();
    if (!share) {
        return [](std::size_t) {};
    }
    auto image = frames->image(frames->frames().count() / 3);
    return [this, share, image = std::move(image), isShown = false](std::size_t) mutable {
        if (!std::exchange(isShown, true)) {
            surface_->paint(*image);
            isBlank_ = false;
        }
    };
}

/// A shape cannot be changed in part.
bool OverlayCanvas::canRepaint(const drawing::OverlayScene &scene) const {
    return image_ && image_->pixmap() != XCB_PIXMAP_NONE && scene.differsInDrawingOnly(painted_) &&
           scene.blending != Blending::cutOut;
}

} // namespace corvane::x11
