#include "overlay/RippleWindow.h"

#include "overlay/RippleView.h"

#include <utility>

namespace corvane {

Rectangle RippleWindow::frameFor(Point clickPoint, std::optional<double> primaryHeight) {
    const Point center = primaryHeight ? flipped(clickPoint, *primaryHeight) : clickPoint;
    return {center.x - RippleView::side / 2, center.y - RippleView::side / 2, RippleView::side,
            RippleView::side};
}

RippleWindow::RippleWindow(platform::OverlayWindows &windows, Point clickPoint,
                           std::optional<double> primaryHeight)
    : native_(windows.create({.frame = frameFor(clickPoint, primaryHeight),
                              .level = window_level::screenSaver,
                              .ignoresMouseEvents = true},
                             {})) {}

void RippleWindow::orderFront() { native_->orderFront(); }

void RippleWindow::orderOut() { native_->orderOut(); }

void RippleWindow::animate(std::function<void()> completion) {
    native_->play(RippleView::animation({0, 0, RippleView::side, RippleView::side}),
                  std::move(completion));
}

} // namespace corvane
