#include "platform/x11/overlay/Overlay.h"

#include "platform/x11/overlay/OverlayKeyboard.h"
#include "platform/x11/overlay/ScreenBeneath.h"
#include "platform/x11/screens/Screens.h"

#include <algorithm>
#include <utility>

namespace corvane::x11 {

using Blending = drawing::OverlayScene::Blending;

namespace {

/// The server's positions have 16 bits and wrap around; no desktop reaches that far.
int serverPosition(int position) {
    constexpr int farthest = 20000;
    return std::clamp(position, -farthest, farthest);
}

} // namespace

Overlay::Overlay(const OverlayTools &tools, const BorderlessWindow &window,
                 platform::OverlayEvents events)
    : traits_(window),
      events_(std::move(events)),
      server_(tools.server),
      screens_(tools.screens),
      beneath_(tools.beneath),
      keyboard_(tools.keyboard),
      canvas_(
          tools.surfaces.take({.ignoresMouseEvents = window.ignoresMouseEvents,
                               .cursor = window.cursor,
                               .isReplaced = window.ignoresMouseEvents && tools.losesInputShapes}),
          tools.renderer),
      surface_(canvas_.surface()),
      content_(canvas_, tools.animator),
      scene_{.background = window.background} {
    moveTo(window.frame);
    beneath_.add(*this);
    if (!window.ignoresMouseEvents) {
        mouse_ = server_.subscribe([this](const xcb_generic_event_t &event) { handle(event); });
    }
}

Overlay::~Overlay() {
    orderOut();
    beneath_.remove(*this);
}

void Overlay::orderFront() {
    server_.sender().markDrawing();
    const bool staysOnTop = !scene_.isEmpty();
    if (isShown_) {
        surface_.raise(traits_.level, staysOnTop);
        return;
    }
    isShown_ = true;
    paint();
    // What has nothing to show but an animation is shown with that, to be replaced less often.
    if (staysOnTop || !surface_.kind().isReplaced) {
        surface_.show(windowFrame(), traits_.level, staysOnTop);
    }
}

void Overlay::makeKeyAndOrderFront() {
    if (!traits_.canBecomeKey) {
        orderFront();
        return;
    }
    keyboard_.prepareFor(surface_.window(), [this](platform::Key key) {
        // A copy, because the receiver may destroy the overlay.
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
        keyboard_.giveTo(surface_.window());
    }
}

void Overlay::orderOut() {
    if (!isShown_) {
        return;
    }
    isShown_ = false;
    hasKeyboard_ = false;
    keyboard_.takeFrom(surface_.window());
    surface_.hide();
}

Rectangle Overlay::frame() const { return screens_.fromRoot(drawing::rectangleOf(frame_)); }

void Overlay::setFrame(const Rectangle &frame) {
    const QSize formerSize = scene_.size;
    const QRect formerPart = scene_.part;
    moveTo(frame);
    if (!isShown_) {
        return;
    }
    if (scene_.size != formerSize || scene_.part != formerPart) {
        content_.show(scene_);
    }
    surface_.place(windowFrame());
    // A zone that follows another program's window is sent within this event-loop iteration.
    server_.connection().flush();
}

void Overlay::moveTo(const Rectangle &frame) {
    frame_ = drawing::pixelsOf(screens_.toRoot(frame));
    scene_.size = frame_.size();
    scene_.part = drawing::shownPart(frame_, drawing::pixelsOf(screens_.desktop()));
}

QRect Overlay::windowFrame() const {
    const QPoint position = frame_.topLeft() + scene_.part.topLeft();
    return {{serverPosition(position.x()), serverPosition(position.y())}, scene_.part.size()};
}

void Overlay::setDrawing(const Drawing &drawing) {
    scene_.drawing = drawing;
    if (isShown_) {
        content_.showSoon(scene_);
    }
}

void Overlay::play(const Animation &animation, std::function<void()> completion) {
    content_.play(scene_, animation, std::move(completion));
    if (isShown_ && surface_.kind().isReplaced && scene_.isEmpty() && !canvas_.isBlank()) {
        surface_.show(windowFrame(), traits_.level, false);
    }
}

Blending Overlay::blending() const {
    if (beneath_.showsThrough()) {
        return Blending::translucent;
    }
    return scene_.hasBackground() ? Blending::backdrop : Blending::cutOut;
}

void Overlay::paint() {
    scene_.blending = blending();
    scene_.backdrop = scene_.blending == Blending::backdrop
                          ? beneath_.image(scene_.part.translated(frame_.topLeft()))
                          : QImage();
    content_.show(scene_);
}

void Overlay::uncoverScreen() {
    if (isShown_ && blending() == Blending::backdrop) {
        surface_.unmap();
    }
}

void Overlay::showAnew() {
    if (!isShown_) {
        return;
    }
    paint();
    if (scene_.blending == Blending::backdrop) {
        surface_.map();
        takeFocus();
    }
}

void Overlay::handle(const xcb_generic_event_t &event) {
    const int type = XcbEvents::typeOf(event);
    if (type != XCB_BUTTON_PRESS && type != XCB_BUTTON_RELEASE && type != XCB_MOTION_NOTIFY) {
        return;
    }
    // Presses, releases and motions have the same layout.
    const auto &mouse = reinterpret_cast<const xcb_button_press_event_t &>(event);
    // What was on its way when the overlay was ordered out is dropped.
    if (isShown_ && mouse.event == surface_.window()) {
        handleMouse(mouse);
    }
}

void Overlay::handleMouse(const xcb_button_press_event_t &event) {
    const int type = event.response_type & ~0x80;
    const bool isLeftButton = event.detail == XCB_BUTTON_INDEX_1;
    std::function<void(Point)> handler;
    if (type == XCB_MOTION_NOTIFY) {
        handler = events_.mouseDragged;
    } else if (isLeftButton) {
        handler = type == XCB_BUTTON_PRESS ? events_.mouseDown : events_.mouseUp;
    }
    if (handler) {
        handler(screens_.toScreenSpace({double(event.root_x), double(event.root_y)}));
    }
}

} // namespace corvane::x11
