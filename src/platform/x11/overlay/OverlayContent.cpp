#include "platform/x11/overlay/OverlayContent.h"

#include <utility>

namespace corvane::x11 {

namespace {

/// Nobody sees more frames than this leaves, however often the mouse reports.
constexpr std::chrono::milliseconds shortestPaintInterval(8);

std::unique_ptr<QTimer> oneShotTimer(std::function<void()> fire) {
    auto timer = std::make_unique<QTimer>();
    timer->setSingleShot(true);
    QObject::connect(timer.get(), &QTimer::timeout, std::move(fire));
    return timer;
}

} // namespace

OverlayContent::OverlayContent(OverlaySurfaces::Lease surface, OverlayRenderer &renderer,
                               OverlayAnimator &animator)
    : renderer_(renderer),
      animator_(animator),
      surface_(std::move(surface)) {}

void OverlayContent::show(const drawing::OverlayScene &scene) {
    scene_ = scene;
    paint();
}

void OverlayContent::paint() {
    if (playback_) {
        playback_->changeTo(renderer_.frames(scene_, playback_->animation()));
        return;
    }
    image_ = renderer_.paint(scene_);
    surface_->paint(*image_);
    paintedDrawing_ = scene_.drawing;
    lastPaint_ = Clock::now();
}

void OverlayContent::show(const Drawing &drawing) {
    scene_.drawing = drawing;
    if (paintTimer_ && paintTimer_->isActive()) {
        return;
    }
    const auto elapsed =
        std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - lastPaint_);
    if (elapsed >= shortestPaintInterval) {
        paintChanges();
        return;
    }
    if (!paintTimer_) {
        paintTimer_ = oneShotTimer([this] { paintChanges(); });
    }
    paintTimer_->start(shortestPaintInterval - elapsed);
}

bool OverlayContent::play(const drawing::OverlayScene &scene, const Animation &animation,
                          std::function<void()> completion) {
    constexpr std::size_t mostStills = 4;
    const bool isShown = !surface_->kind().isReplaced || animator_.runningCount() < mostStills;
    scene_ = scene;
    playback_ = std::make_unique<OverlayPlayback>(
        animator_, *surface_, renderer_.frames(scene_, animation), std::move(completion), isShown);
    return isShown;
}

bool OverlayContent::canPaintChanges() const {
    return !playback_ && image_ && image_->pixmap() != XCB_PIXMAP_NONE &&
           scene_.blending != drawing::OverlayScene::Blending::cutOut;
}

void OverlayContent::paintChanges() {
    if (!canPaintChanges()) {
        paint();
        return;
    }
    const QRegion changed =
        drawing::OverlayPainter::difference(paintedDrawing_, scene_.drawing, scene_.size)
            .intersected(scene_.part);
    renderer_.repaint(*image_, scene_, changed);
    surface_->paint(*image_, changed.translated(-scene_.part.topLeft()));
    paintedDrawing_ = scene_.drawing;
    lastPaint_ = Clock::now();
}

} // namespace corvane::x11
