#include "overlay/ZoneOverlayWindow.h"

#include "overlay/ZoneOverlayView.h"

namespace corvane {

Rectangle ZoneOverlayWindow::frameFor(const Rectangle &zone, std::optional<double> primaryHeight) {
    const Rectangle withBadge{zone.x, zone.y - ZoneOverlayView::badgeOverhang, zone.width,
                              zone.height + ZoneOverlayView::badgeOverhang};
    return primaryHeight ? flipped(withBadge, *primaryHeight) : withBadge;
}

ZoneOverlayWindow::ZoneOverlayWindow(platform::OverlayWindows &windows, const Rectangle &zone,
                                     std::optional<double> primaryHeight)
    : native_(windows.create({.frame = frameFor(zone, primaryHeight),
                              .level = window_level::status,
                              .ignoresMouseEvents = true},
                             {})) {
    native_->setDrawing(ZoneOverlayView::drawing(frameFor(zone, primaryHeight).size()));
}

void ZoneOverlayWindow::orderFront() { native_->orderFront(); }

void ZoneOverlayWindow::orderOut() { native_->orderOut(); }

void ZoneOverlayWindow::moveTo(const Rectangle &zone, double primaryHeight) {
    native_->setFrame(frameFor(zone, primaryHeight));
}

} // namespace corvane
