#include "platform/x11/overlay/Overlay.h"

#include "platform/x11/overlay/OverlayStage.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace corvane::x11 {

namespace {

/// Nobody sees more pictures than this, however often the mouse reports.
constexpr std::chrono::milliseconds shortestRepaintInterval(8);

/// The nearest pixel edge, of those whose distances can still be counted.
int pixelEdge(double position) {
    constexpr double farthest = 1e9;
    const double within = position > -farthest ? std::min(position, farthest) : -farthest;
    return static_cast<int>(std::lround(within));
}

/// The server counts to little more and begins anew beyond; no desktop reaches that far.
int serverPosition(int position) {
    constexpr int farthest = 20000;
    return std::clamp(position, -farthest, farthest);
}

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

Overlay::Overlay(OverlayStage &stage, const BorderlessWindow &window,
                 platform::OverlayEvents events)
    : stage_(stage),
      traits_(window),
      events_(std::move(events)),
      frame_(pixelsOf(window.frame)),
      part_(shownPart()),
      surface_(stage.surfaces().take({window.ignoresMouseEvents, window.cursor})) {
    stage_.add(*this);
}

Overlay::~Overlay() {
    orderOut();
    playback_.reset();
    stage_.remove(*this);
    stage_.surfaces().giveBack(std::move(surface_));
}

void Overlay::orderFront() {
    stage_.sender().draws();
    const OverlayStack::Silence silence(stage_.stack());
    stage_.stack().insert(surface_->window(), traits_.level, !isEmpty());
    if (!isShown_) {
        place();
        map();
    }
}

void Overlay::makeKeyAndOrderFront() {
    if (!traits_.canBecomeKey) {
        orderFront();
        return;
    }
    stage_.keyboard().prepareFor(surface_->window(), [this](platform::Key key) {
        if (const auto handler = events_.keyDown) {
            handler(key);
        }
    });
    orderFront();
    hasKeyboard_ = true;
    takeFocus();
}

void Overlay::takeFocus() {
    if (hasKeyboard_) {
        stage_.keyboard().giveTo(surface_->window());
    }
}

void Overlay::orderOut() {
    if (!isShown_) {
        return;
    }
    isShown_ = false;
    hasKeyboard_ = false;
    stage_.keyboard().takeFrom(surface_->window());
    const OverlayStack::Silence silence(stage_.stack());
    stage_.stack().remove(surface_->window());
    surface_->unmap();
}

void Overlay::map() {
    isShown_ = true;
    backdrop_ = blending() == drawing::OverlayScene::Blending::backdrop
                    ? stage_.uncoveredScreen(part_.translated(frame_.topLeft()))
                    : QImage();
    repaint();
    surface_->map();
}

Rectangle Overlay::frame() const {
    return stage_.screens().fromRoot(
        {double(frame_.x()), double(frame_.y()), double(frame_.width()), double(frame_.height())});
}

void Overlay::setFrame(const Rectangle &frame) {
    const QRect former = frame_;
    const QRect formerPart = part_;
    frame_ = pixelsOf(frame);
    part_ = shownPart();
    if (!isShown_) {
        return;
    }
    if (frame_.size() != former.size() || part_ != formerPart) {
        repaint();
    }
    {
        const OverlayStack::Silence silence(stage_.stack());
        place();
    }
    // What follows another program's window must not wait for the end of the turn.
    stage_.connection().flush();
}

void Overlay::place() {
    const QPoint corner = frame_.topLeft() + part_.topLeft();
    surface_->place({{serverPosition(corner.x()), serverPosition(corner.y())}, part_.size()});
}

void Overlay::setDrawing(const Drawing &drawing) {
    drawing_ = drawing;
    if (isShown_) {
        repaintSoon();
    }
}

void Overlay::play(const Animation &animation, std::function<void()> completion) {
    playback_ = std::make_unique<OverlayPlayback>(
        stage_.animator(), *surface_, stage_.animation(scene(), animation), std::move(completion));
}

void Overlay::handleMouse(const xcb_button_press_event_t &event) {
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

void Overlay::uncoverBackdrop() {
    if (isShown_ && blending() == drawing::OverlayScene::Blending::backdrop) {
        surface_->unmap();
    }
}

void Overlay::blendingChanged() {
    if (!isShown_) {
        return;
    }
    if (blending() != drawing::OverlayScene::Blending::backdrop) {
        backdrop_ = {};
        repaint();
        return;
    }
    map();
    takeFocus();
}

QRect Overlay::pixelsOf(const Rectangle &frame) const {
    const Rectangle root = stage_.screens().toRoot(frame);
    const int left = pixelEdge(root.x);
    const int top = pixelEdge(root.y);
    // The server has no windows without an area.
    return {left, top, std::max(1, pixelEdge(root.maxX()) - left),
            std::max(1, pixelEdge(root.maxY()) - top)};
}

QRect Overlay::shownPart() const {
    const Rectangle &root = stage_.screens().desktop();
    const QRect desktop(0, 0, static_cast<int>(root.width), static_cast<int>(root.height));
    const QRect whole(QPoint(), frame_.size());
    if (whole.width() <= desktop.width() && whole.height() <= desktop.height()) {
        return whole;
    }
    const QRect part = whole.intersected(desktop.translated(-frame_.topLeft()));
    return part.isEmpty() ? QRect(0, 0, 1, 1) : part;
}

drawing::OverlayScene::Blending Overlay::blending() const {
    if (stage_.blends()) {
        return drawing::OverlayScene::Blending::translucent;
    }
    return isVisible(traits_.background) ? drawing::OverlayScene::Blending::backdrop
                                         : drawing::OverlayScene::Blending::cutOut;
}

drawing::OverlayScene Overlay::scene() const {
    return {frame_.size(), part_, blending(), traits_.background, backdrop_, drawing_};
}

bool Overlay::isEmpty() const { return drawing_.empty() && !isVisible(traits_.background); }

void Overlay::repaint() {
    if (playback_) {
        playback_->changeTo(stage_.animation(scene(), playback_->animation()));
        return;
    }
    const drawing::OverlayScene painted = scene();
    const QImage image = isEmpty() ? QImage() : stage_.painter().paint(painted, part_);
    picture_ = std::make_unique<OverlayImage>(stage_.visual(), part_.size());
    if (!image.isNull()) {
        picture_->put(image, QPoint());
    }
    if (painted.blending == drawing::OverlayScene::Blending::cutOut) {
        picture_->cutOut(image);
    }
    surface_->show(*picture_);
    shownDrawing_ = drawing_;
    lastRepaint_ = Clock::now();
}

bool Overlay::canRepaintParts() const {
    return !playback_ && picture_ && picture_->pixmap() != XCB_PIXMAP_NONE &&
           blending() != drawing::OverlayScene::Blending::cutOut;
}

void Overlay::repaintChanges() {
    if (!canRepaintParts()) {
        repaint();
        return;
    }
    const QRegion changed =
        drawing::OverlayPainter::difference(shownDrawing_, drawing_, frame_.size())
            .intersected(part_);
    const drawing::OverlayScene painted = scene();
    for (const QRect &piece : changed) {
        picture_->put(stage_.painter().paint(painted, piece), piece.topLeft() - part_.topLeft());
    }
    surface_->show(*picture_, changed.translated(-part_.topLeft()));
    shownDrawing_ = drawing_;
    lastRepaint_ = Clock::now();
}

void Overlay::repaintSoon() {
    if (repaintTimer_ && repaintTimer_->isActive()) {
        return;
    }
    const auto elapsed =
        std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - lastRepaint_);
    if (elapsed >= shortestRepaintInterval) {
        repaintChanges();
        return;
    }
    if (!repaintTimer_) {
        repaintTimer_ = oneShotTimer([this] { repaintChanges(); });
    }
    repaintTimer_->start(shortestRepaintInterval - elapsed);
}

} // namespace corvane::x11
