#include "platform/x11/overlay/OverlayStage.h"

#include "platform/x11/overlay/Overlay.h"
#include "platform/x11/overlay/ScreenGrab.h"

#include <QThread>
#include <xcb/shape.h>
#include <xcb/xfixes.h>

#include <algorithm>
#include <utility>

namespace corvane::x11 {

namespace {

/// What other programs need to draw where a window has gone.
constexpr std::chrono::milliseconds timeToUncover(100);

bool offers(const XcbConnection &connection, xcb_extension_t &extension) {
    const auto *data = xcb_get_extension_data(connection.get(), &extension);
    return data != nullptr && data->present != 0;
}

} // namespace

std::unique_ptr<OverlayStage> OverlayStage::make(XcbEvents &events, const Screens &screens,
                                                 drawing::SymbolImages &symbols) {
    const XcbConnection &connection = events.connection();
    auto visual = OverlayVisual::find(connection);
    if (!visual || !offers(connection, xcb_xfixes_id) || !offers(connection, xcb_shape_id)) {
        return nullptr;
    }
    return std::unique_ptr<OverlayStage>(
        new OverlayStage(events, screens, symbols, std::move(visual))); // NOLINT
}

OverlayStage::OverlayStage(XcbEvents &events, const Screens &screens,
                           drawing::SymbolImages &symbols, std::unique_ptr<OverlayVisual> visual)
    : sender_(events.sender()),
      connection_(events.connection()),
      screens_(screens),
      visual_(std::move(visual)),
      painter_(symbols),
      surfaces_(*visual_),
      stack_(events),
      keyboard_(events),
      animator_(events.sender()),
      compositor_(events, [this] { compositorChanged(); }),
      subscription_(events.subscribe([this](const xcb_generic_event_t &event) { handle(event); })) {
}

std::shared_ptr<OverlayAnimation> OverlayStage::animation(const drawing::OverlayScene &scene,
                                                          const Animation &animation) {
    const auto known = std::ranges::find_if(
        animations_, [&](const auto &kept) { return kept->frames().show(scene, animation); });
    if (known != animations_.end()) {
        return *known;
    }
    constexpr std::size_t mostKept = 4;
    if (animations_.size() == mostKept) {
        animations_.erase(animations_.begin());
    }
    animations_.push_back(std::make_shared<OverlayAnimation>(
        *visual_, drawing::AnimationFrames(painter_, scene, animation)));
    return animations_.back();
}

QImage OverlayStage::uncoveredScreen(const QRect &area) {
    // Overlays for several screens come one after the other.
    const auto now = std::chrono::steady_clock::now();
    if (now - lastGrab_ >= timeToUncover) {
        connection_.flush();
        QThread::msleep(timeToUncover.count());
    }
    lastGrab_ = std::chrono::steady_clock::now();
    return screenGrab(connection_, area);
}

Overlay *OverlayStage::overlayOf(xcb_window_t window) const {
    const auto overlay = std::ranges::find_if(
        overlays_, [window](const auto *known) { return known->window() == window; });
    return overlay == overlays_.end() ? nullptr : *overlay;
}

void OverlayStage::handle(const xcb_generic_event_t &event) {
    const int type = XcbEvents::typeOf(event);
    if (type != XCB_BUTTON_PRESS && type != XCB_BUTTON_RELEASE && type != XCB_MOTION_NOTIFY) {
        return;
    }
    // Presses, releases and motions have the same layout.
    const auto &mouse = reinterpret_cast<const xcb_button_press_event_t &>(event);
    if (Overlay *const overlay = overlayOf(mouse.event)) {
        overlay->handleMouse(mouse);
    }
}

void OverlayStage::compositorChanged() {
    animations_.clear();
    // The screen beneath can be seen only while no overlay is over it.
    for (Overlay *const overlay : overlays_) {
        overlay->uncoverBackdrop();
    }
    for (Overlay *const overlay : overlays_) {
        overlay->blendingChanged();
    }
}

} // namespace corvane::x11
