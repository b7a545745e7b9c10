#include "platform/linux/LinuxOverlay.h"

#include "platform/linux/OverlayStage.h"
#include "platform/linux/ScreenGrab.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace corvane::x11 {

namespace {

/// Nobody sees more pictures than this, however often the mouse reports.
constexpr std::chrono::milliseconds shortestRepaintInterval(8);

/// What other programs need to draw where a window has gone.
constexpr std::chrono::milliseconds timeToUncover(100);

bool isVisible(const Colour &colour) {
    return colour.name != ColourName::clear && colour.alpha > 0;
}

std::unique_ptr<QTimer> oneShotTimer(std::function<void()> fire) {
    auto timer = std::make_unique<QTimer>();
    timer->setSingleShot(true);
    QObject::connect(timer.get(), &QTimer::timeout, std::move(fire));
    return timer;
}

} // namespace

LinuxOverlay::LinuxOverlay(OverlayStage &stage, const BorderlessWindow &window,
                           platform::OverlayEvents events)
    : stage_(stage),
      traits_(window),
      events_(std::move(events)),
      frame_(pixelsOf(window.frame)),
      surface_(stage.surfaces().take({window.ignoresMouseEvents, window.cursor})) {
    stage_.add(*this);
    surface_->place(frame_);
}

LinuxOverlay::~LinuxOverlay() {
    orderOut();
    playback_.reset();
    stage_.remove(*this);
    stage_.surfaces().giveBack(std::move(surface_));
    stage_.connection().flush();
}

void LinuxOverlay::orderFront() {
    stage_.stack().insert(surface_->window(), traits_.level);
    if (!isShown_) {
        map();
    }
    stage_.connection().flush();
}

void LinuxOverlay::makeKeyAndOrderFront() {
    orderFront();
    if (traits_.canBecomeKey) {
        stage_.keyboard().giveTo(surface_->window(), [this](platform::Key key) {
            if (const auto handler = events_.keyDown) {
                handler(key);
            }
        });
        stage_.connection().flush();
    }
}

void LinuxOverlay::orderOut() {
    if (!isShown_) {
        return;
    }
    isShown_ = false;
    grabTimer_.reset();
    stage_.keyboard().takeFrom(surface_->window());
    stage_.stack().remove(surface_->window());
    surface_->unmap();
    stage_.connection().flush();
}

void LinuxOverlay::map() {
    if (blending() == OverlayScene::Blending::backdrop) {
        backdrop_ = screenGrab(stage_.connection(), frame_);
    }
    isShown_ = true;
    repaint();
    surface_->map();
}

void LinuxOverlay::setFrame(const Rectangle &frame) {
    const QRect pixels = pixelsOf(frame);
    if (pixels == frame_) {
        return;
    }
    const bool isResized = pixels.size() != frame_.size();
    frame_ = pixels;
    if (isResized) {
        repaint();
    }
    surface_->place(frame_);
    stage_.connection().flush();
}

void LinuxOverlay::setDrawing(const Drawing &drawing) {
    drawing_ = drawing;
    if (isShown_) {
        repaintSoon();
    }
}

void LinuxOverlay::play(const Animation &animation, std::function<void()> completion) {
    playback_ = std::make_unique<OverlayPlayback>(
        stage_.animator(), *surface_, stage_.animation(scene(), animation), std::move(completion));
    stage_.connection().flush();
}

void LinuxOverlay::handleMouse(const xcb_button_press_event_t &event) {
    if (!isShown_) {
        return;
    }
    const int type = event.response_type & ~0x80;
    const bool isLeftButton = event.detail == XCB_BUTTON_INDEX_1;
    std::function<void(Point)> handler;
    if (type == XCB_MOTION_NOTIFY) {
        handler = events_.mouseDragged;
    } else if (isLeftButton) {
        handler = type == XCB_BUTTON_PRESS ? events_.mouseDown : events_.mouseUp;
    }
    if (handler) {
        handler(stage_.screens().toScreenSpace({double(event.root_x), double(event.root_y)}));
    }
}

void LinuxOverlay::blendingChanged() {
    if (!isShown_) {
        return;
    }
    backdrop_ = {};
    if (blending() == OverlayScene::Blending::backdrop) {
        hideAndGrabAgain();
    } else {
        grabTimer_.reset();
        repaint();
        surface_->map();
    }
}

void LinuxOverlay::hideAndGrabAgain() {
    surface_->unmap();
    grabTimer_ = oneShotTimer([this] {
        map();
        stage_.connection().flush();
    });
    grabTimer_->start(timeToUncover);
}

QRect LinuxOverlay::pixelsOf(const Rectangle &frame) const {
    const Rectangle root = stage_.screens().toRoot(frame);
    const auto left = static_cast<int>(std::lround(root.x));
    const auto top = static_cast<int>(std::lround(root.y));
    const auto right = static_cast<int>(std::lround(root.maxX()));
    const auto bottom = static_cast<int>(std::lround(root.maxY()));
    // The server has no windows without an area.
    return {left, top, std::max(1, right - left), std::max(1, bottom - top)};
}

OverlayScene::Blending LinuxOverlay::blending() const {
    if (stage_.blends()) {
        return OverlayScene::Blending::translucent;
    }
    return isVisible(traits_.background) ? OverlayScene::Blending::backdrop
                                         : OverlayScene::Blending::cutOut;
}

OverlayScene LinuxOverlay::scene() const {
    return {frame_.size(), blending(), traits_.background, backdrop_, drawing_};
}

bool LinuxOverlay::isEmpty() const { return drawing_.empty() && !isVisible(traits_.background); }

void LinuxOverlay::repaint() {
    if (playback_) {
        playback_->changeTo(stage_.animation(scene(), playback_->animation()));
        return;
    }
    const QRect whole(QPoint(), frame_.size());
    const OverlayScene painted = scene();
    const QImage image = isEmpty() ? QImage() : stage_.painter().paint(painted, whole);
    picture_ = std::make_unique<OverlayPicture>(stage_.visual(), frame_.size());
    if (!image.isNull()) {
        picture_->put(image, QPoint());
    }
    if (painted.blending == OverlayScene::Blending::cutOut) {
        picture_->cutOut(image);
    }
    surface_->show(*picture_, whole);
    shownDrawing_ = drawing_;
    lastRepaint_ = Clock::now();
}

bool LinuxOverlay::canRepaintParts() const {
    return !playback_ && picture_ && picture_->pixmap() != XCB_PIXMAP_NONE &&
           blending() != OverlayScene::Blending::cutOut;
}

void LinuxOverlay::repaintChanges() {
    if (!canRepaintParts()) {
        repaint();
        return;
    }
    const QRegion changed = OverlayPainter::difference(shownDrawing_, drawing_, frame_.size());
    const OverlayScene painted = scene();
    for (const QRect &part : changed) {
        picture_->put(stage_.painter().paint(painted, part), part.topLeft());
    }
    surface_->show(*picture_, changed);
    shownDrawing_ = drawing_;
    lastRepaint_ = Clock::now();
}

void LinuxOverlay::repaintSoon() {
    if (repaintTimer_ && repaintTimer_->isActive()) {
        return;
    }
    const auto elapsed =
        std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - lastRepaint_);
    if (elapsed >= shortestRepaintInterval) {
        repaintChanges();
        stage_.connection().flush();
        return;
    }
    if (!repaintTimer_) {
        repaintTimer_ = oneShotTimer([this] {
            repaintChanges();
            stage_.connection().flush();
        });
    }
    repaintTimer_->start(shortestRepaintInterval - elapsed);
}

} // namespace corvane::x11
