#include "overlay/ZoneOverlayWindow.h"

#include "overlay/ZoneOverlayView.h"

namespace corvane {

Rectangle ZoneOverlayWindow::frameFor(const Rectangle &zone, std::optional<double> primaryHeight) {
    Rectangle withBadge = zone.standardised();
    withBadge.y -= ZoneOverlayView::badgeOverhang;
    withBadge.height += ZoneOverlayView::badgeOverhang;
    return primaryHeight ? flipped(withBadge, *primaryHeight) : withBadge;
}

ZoneOverlayWindow::ZoneOverlayWindow(platform::OverlayWindows &windows, const Rectangle &zone,
                                     std::optional<double> primaryHeight)
    : frame_(frameFor(zone, primaryHeight)),
      native_(windows.create(
          {.frame = frame_, .level = window_level::status, .ignoresMouseEvents = true}, {})) {
    native_->setDrawing(ZoneOverlayView::drawing(frame_.size()));
}

void ZoneOverlayWindow::orderFront() { native_->orderFront(); }

void ZoneOverlayWindow::orderOut() { native_->orderOut(); }

void ZoneOverlayWindow::moveTo(const Rectangle &zone, double primaryHeight) {
    const Rectangle frame = frameFor(zone, primaryHeight);
    // A tracked window stands still most of the time.
    if (frame == frame_) {
        return;
    }
    if (frame.size() != frame_.size()) {
        native_->setDrawing(ZoneOverlayView::drawing(frame.size()));
    }
    native_->setFrame(frame);
    frame_ = frame;
}

} // namespace corvane
