#include "platform/x11/overlay/OverlayWindows.h"

#include "platform/drawing/OverlayAnimator.h"
#include "platform/drawing/UnshownOverlay.h"
#include "platform/x11/connection/ServerAbilities.h"
#include "platform/x11/overlay/Overlay.h"
#include "platform/x11/overlay/OverlayImage.h"
#include "platform/x11/overlay/OverlayKeyboard.h"
#include "platform/x11/overlay/OverlayRenderer.h"
#include "platform/x11/overlay/OverlaySurface.h"
#include "platform/x11/overlay/ScreenBeneath.h"

#include <xcb/shape.h>
#include <xcb/xfixes.h>

#include <utility>

namespace corvane::x11 {

/// What all overlays use.
struct OverlayWindows::Shared {
    Shared(XcbEvents &events, drawing::SymbolImages &symbols,
           std::unique_ptr<OverlayVisual> foundVisual)
        : sender(events.sender()),
          visual(std::move(foundVisual)),
          beneath(events, *visual),
          surfaces(*visual, events),
          keyboard(events),
          renderer(*visual, symbols),
          animator({.beforeFrames = [this] { sender.markDrawing(); },
                    .deferred = [this](auto moment) { return sender.deferPastClick(moment); }}) {
        sender.beforeSending([this] { animator.advanceWhileAwake(); });
    }
    ~Shared() {
        sender.beforeSending([] {});
    }
    Shared(const Shared &) = delete;
    Shared &operator=(const Shared &) = delete;

    RequestSender &sender;
    const std::unique_ptr<OverlayVisual> visual;
    ScreenBeneath beneath;
    OverlaySurfaces surfaces;
    OverlayKeyboard keyboard;
    OverlayRenderer renderer;
    drawing::OverlayAnimator animator;
};

OverlayWindows::OverlayWindows(XcbEvents &events, const Screens &screens,
                               drawing::SymbolImages &symbols)
    : OverlayWindows(events, screens, symbols, x11::losesInputShapes(events.connection())) {}

OverlayWindows::OverlayWindows(XcbEvents &events, const Screens &screens,
                               drawing::SymbolImages &symbols, bool losesInputShapes)
    : events_(events),
      screens_(screens),
      losesInputShapes_(losesInputShapes) {
    const XcbConnection &connection = events.connection();
    auto visual = OverlayVisual::find(connection);
    if (visual && connection.extension(xcb_xfixes_id) != nullptr &&
        connection.extension(xcb_shape_id) != nullptr) {
        shared_ = std::make_unique<Shared>(events, symbols, std::move(visual));
    }
}

OverlayWindows::~OverlayWindows() = default;

std::unique_ptr<platform::NativeOverlay> OverlayWindows::create(const BorderlessWindow &window,
                                                                platform::OverlayEvents events) {
    if (!shared_) {
        return std::make_unique<drawing::UnshownOverlay>(window.frame);
    }
    const OverlayTools tools{events_,           screens_,          shared_->beneath,
                             shared_->keyboard, shared_->surfaces, shared_->renderer,
                             shared_->animator, losesInputShapes_};
    return std::make_unique<Overlay>(tools, window, std::move(events));
}

} // namespace corvane::x11
