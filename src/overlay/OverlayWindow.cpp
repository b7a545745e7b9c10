#include "overlay/OverlayWindow.h"

#include <utility>

namespace corvane {

namespace {

platform::OverlayEvents eventsFor(OverlayCallbacks callbacks) {
    return {.mouseDown = std::move(callbacks.onMouseDown),
            .mouseDragged = std::move(callbacks.onDrag),
            .mouseUp = std::move(callbacks.onMouseUp),
            .keyDown = [onCancel = std::move(callbacks.onCancel)](platform::Key key) {
                if (key == platform::Key::escape) {
                    onCancel();
                }
            }};
}

BorderlessWindow dimmingWindow(const Rectangle &frame) {
    return {.frame = frame,
            .level = window_level::screenSaver,
            .background = {ColourName::black, 0.3},
            .ignoresMouseEvents = false,
            .acceptsMouseMovedEvents = true,
            .canBecomeKey = true,
            .cursor = Cursor::crosshair};
}

} // namespace

OverlayWindow::OverlayWindow(platform::OverlayWindows &windows, const Rectangle &contentRectangle,
                             OverlayCallbacks callbacks)
    : native_(windows.create(dimmingWindow(contentRectangle), eventsFor(std::move(callbacks)))) {}

void OverlayWindow::makeKeyAndOrderFront() { native_->makeKeyAndOrderFront(); }

void OverlayWindow::orderOut() { native_->orderOut(); }

void OverlayWindow::showSelection(const Rectangle &selection) {
    const Rectangle frame = native_->frame();
    selectionLayer_.setPath(
        Rectangle{selection.x - frame.x, selection.y - frame.y, selection.width, selection.height});
    native_->setDrawing(selectionLayer_.drawing());
}

void OverlayWindow::clearSelection() {
    selectionLayer_.setPath(std::nullopt);
    native_->setDrawing(selectionLayer_.drawing());
}

} // namespace corvane
