#include "platform/wayland/overlay/OverlayInput.h"

#include <linux/input-event-codes.h>
#include <utility>

namespace corvane::wayland {

OverlayInput::OverlayInput(const Connection &connection)
    : connection_(connection),
      seat_(connection,
            {.pointerEntered =
                 [this](wl_surface *surface, Point point, std::uint32_t serial) {
                     beneathPointer_ = surface;
                     point_ = point;
                     if (const InputReceiver *receiver = receiverOf(surface)) {
                         showCursor(receiver->cursor(), serial);
                     }
                 },
             .pointerMoved =
                 [this](Point point) {
                     point_ = point;
                     if (isDragging_) {
                         report(beneathPointer_,
                                [point](InputReceiver &receiver) { receiver.mouseDragged(point); });
                     }
                 },
             .buttonChanged = [this](std::uint32_t button, bool isPress,
                                     std::uint32_t /*time*/) { changeButton(button, isPress); },
             .keyMapChanged = [this](int descriptor,
                                     std::uint32_t size) { keyMap_.load(descriptor, size); },
             .modifiersChanged =
                 [this](std::uint32_t depressed, std::uint32_t latched, std::uint32_t locked,
                        std::uint32_t group) {
                     keyMap_.setModifiers(depressed, latched, locked, group);
                 },
             .keyboardEntered = [this](wl_surface *surface) { withKeyboard_ = surface; },
             .keyPressed =
                 [this](std::uint32_t number) {
                     report(withKeyboard_, [key = keyMap_.keyOf(number)](InputReceiver &receiver) {
                         receiver.keyDown(key);
                     });
                 }}) {}

InputReceiver *OverlayInput::receiverOf(wl_surface *surface) const {
    const auto known = receivers_.find(surface);
    return known != receivers_.end() ? known->second : nullptr;
}

/// The receiver may destroy its surface. It learns of the event when no other is waiting that names
/// the surface (a drag that ends on another output is followed by the pointer's way there):
/// libwayland never frees a surface destroyed before such an event.
void OverlayInput::report(wl_surface *surface, std::function<void(InputReceiver &)> event) {
    QMetaObject::invokeMethod(
        &reports_,
        [this, surface, event = std::move(event)] {
            if (InputReceiver *const receiver = receiverOf(surface)) {
                event(*receiver);
            }
        },
        Qt::QueuedConnection);
}

void OverlayInput::changeButton(std::uint32_t button, bool isPress) {
    if (button != BTN_LEFT) {
        return;
    }
    isDragging_ = isPress;
    report(beneathPointer_, [isPress, point = point_](InputReceiver &receiver) {
        isPress ? receiver.mouseDown(point) : receiver.mouseUp(point);
    });
}

/// Without such a cursor in the user's theme the pointer keeps the one it has.
void OverlayInput::showCursor(Cursor cursor, std::uint32_t serial) {
    constexpr int pixels = 24;
    if (!cursors_) {
        cursors_.reset(wl_cursor_theme_load(nullptr, pixels, connection_.sharedMemory()));
    }
    wl_cursor *const shape =
        cursors_ ? wl_cursor_theme_get_cursor(
                       cursors_.get(), cursor == Cursor::crosshair ? "crosshair" : "left_ptr")
                 : nullptr;
    if (shape == nullptr) {
        return;
    }
    if (!cursorSurface_) {
        cursorSurface_.reset(wl_compositor_create_surface(connection_.compositor()));
    }
    wl_cursor_image *const image = *shape->images;
    wl_surface_attach(cursorSurface_.get(), wl_cursor_image_get_buffer(image), 0, 0);
    wl_surface_damage(cursorSurface_.get(), 0, 0, static_cast<int>(image->width),
                      static_cast<int>(image->height));
    wl_surface_commit(cursorSurface_.get());
    wl_pointer_set_cursor(seat_.pointer(), serial, cursorSurface_.get(),
                          static_cast<int>(image->hotspot_x), static_cast<int>(image->hotspot_y));
}

} // namespace corvane::wayland
