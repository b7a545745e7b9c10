#include "platform/drawing/OverlayContent.h"

#include <utility>

namespace corvane::drawing {

namespace {

/// More frames than this leaves are not seen, however often the mouse reports.
constexpr std::chrono::milliseconds shortestPaintInterval(8);

std::unique_ptr<QTimer> oneShotTimer(std::function<void()> fire) {
    auto timer = std::make_unique<QTimer>();
    timer->setSingleShot(true);
    QObject::connect(timer.get(), &QTimer::timeout, std::move(fire));
    return timer;
}

} // namespace

OverlayContent::OverlayContent(OverlayCanvas &canvas, OverlayAnimator &animator)
    : canvas_(canvas),
      animator_(animator) {}

void OverlayContent::show(const OverlayScene &scene) {
    scene_ = scene;
    paint();
}

void OverlayContent::showSoon(const OverlayScene &scene) {
    scene_ = scene;
    if (paintTimer_ && paintTimer_->isActive()) {
        return;
    }
    const auto elapsed =
        std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - lastPaint_);
    if (elapsed >= shortestPaintInterval) {
        paint();
        return;
    }
    if (!paintTimer_) {
        paintTimer_ = oneShotTimer([this] { paint(); });
    }
    paintTimer_->start(shortestPaintInterval - elapsed);
}

void OverlayContent::play(const OverlayScene &scene, const Animation &animation,
                          std::function<void()> completion) {
    scene_ = scene;
    playback_ = std::make_unique<OverlayPlayback>(
        animator_, animation, canvas_.frames(scene_, animation), std::move(completion));
}

void OverlayContent::paint() {
    if (playback_) {
        playback_->changeTo(canvas_.frames(scene_, playback_->animation()));
    } else {
        canvas_.paint(scene_);
    }
    lastPaint_ = Clock::now();
}

} // namespace corvane::drawing
