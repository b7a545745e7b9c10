#pragma once

#include "platform/drawing/OverlayPainter.h"
#include "platform/x11/connection/RequestSender.h"
#include "platform/x11/connection/XcbEvents.h"
#include "platform/x11/overlay/OverlayAnimation.h"
#include "platform/x11/overlay/OverlayAnimator.h"
#include "platform/x11/overlay/OverlayKeyboard.h"
#include "platform/x11/overlay/OverlayStack.h"
#include "platform/x11/overlay/OverlaySurfaces.h"
#include "platform/x11/overlay/OverlayVisual.h"
#include "platform/x11/screens/CompositorMonitor.h"
#include "platform/x11/screens/Screens.h"

#include <QImage>
#include <QRect>

#include <chrono>
#include <memory>
#include <vector>

namespace corvane::x11 {

class Overlay;

/// What all overlays share. Main thread.
class OverlayStage {
  public:
    /// Null where the server cannot show overlays that let the mouse through. Everything given
    /// outlives the stage, which outlives every overlay.
    static std::unique_ptr<OverlayStage> make(XcbEvents &events, const Screens &screens,
                                              drawing::SymbolImages &symbols);

    ~OverlayStage() = default;
    OverlayStage(const OverlayStage &) = delete;
    OverlayStage &operator=(const OverlayStage &) = delete;

    const XcbConnection &connection() const { return connection_; }
    RequestSender &sender() { return sender_; }
    const Screens &screens() const { return screens_; }
    const OverlayVisual &visual() const { return *visual_; }
    const drawing::OverlayPainter &painter() const { return painter_; }
    OverlaySurfaces &surfaces() { return surfaces_; }
    OverlayStack &stack() { return stack_; }
    OverlayKeyboard &keyboard() { return keyboard_; }
    OverlayAnimator &animator() { return animator_; }

    /// Whether what is translucent shows the screen beneath.
    bool blends() const { return visual_->hasAlpha() && compositor_.isRunning(); }

    /// The pictures of an animation over a scene, shared with others that play the same.
    std::shared_ptr<OverlayAnimation> animation(const drawing::OverlayScene &scene,
                                                const Animation &animation);

    /// What the screen shows in an area of the root window. Waits a moment for other programs to
    /// draw what a window of this one has uncovered just before, so that it is not taken for
    /// theirs.
    QImage uncoveredScreen(const QRect &area);

    /// From now on the overlay hears of mouse events and of changes of the screen.
    void add(Overlay &overlay) { overlays_.push_back(&overlay); }
    void remove(Overlay &overlay) { std::erase(overlays_, &overlay); }

  private:
    OverlayStage(XcbEvents &events, const Screens &screens, drawing::SymbolImages &symbols,
                 std::unique_ptr<OverlayVisual> visual);

    void handle(const xcb_generic_event_t &event);
    Overlay *overlayOf(xcb_window_t window) const;
    void compositorChanged();

    RequestSender &sender_;
    const XcbConnection &connection_;
    const Screens &screens_;
    std::unique_ptr<OverlayVisual> visual_;
    drawing::OverlayPainter painter_;
    OverlaySurfaces surfaces_;
    OverlayStack stack_;
    OverlayKeyboard keyboard_;
    OverlayAnimator animator_;
    CompositorMonitor compositor_;
    /// Those played last.
    std::vector<std::shared_ptr<OverlayAnimation>> animations_;
    std::vector<Overlay *> overlays_;
    std::chrono::steady_clock::time_point lastGrab_;
    XcbEvents::Subscription subscription_;
};

} // namespace corvane::x11
