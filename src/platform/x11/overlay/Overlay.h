#pragma once

#include "platform/OverlayWindows.h"
#include "platform/drawing/OverlayScene.h"
#include "platform/x11/connection/XcbEvents.h"
#include "platform/x11/overlay/OverlayRenderer.h"

#include <QRect>

namespace corvane::x11 {

class OverlayKeyboard;
class ScreenBeneath;
class Screens;

/// What overlays share; outlives them.
struct OverlayTools {
    XcbEvents &server;
    const Screens &screens;
    ScreenBeneath &beneath;
    OverlayKeyboard &keyboard;
    OverlaySurfaces &surfaces;
    OverlayRenderer &renderer;
    drawing::OverlayAnimator &animator;
    /// Whether a changed window would take the mouse, so that a new one has to replace it.
    bool losesInputShapes = false;
};

/// A window over all others, blended with the screen where a compositing manager runs. Without one,
/// a window with a background shows an image of the screen beneath, and any other is cut to its
/// shape.
class Overlay final : public platform::NativeOverlay {
  public:
    Overlay(const OverlayTools &tools, const BorderlessWindow &window,
            platform::OverlayEvents events);
    ~Overlay() override;

    Overlay(const Overlay &) = delete;
    Overlay &operator=(const Overlay &) = delete;

    void orderFront() override;
    void makeKeyAndOrderFront() override;
    void orderOut() override;
    Rectangle frame() const override;
    void setFrame(const Rectangle &frame) override;
    void setDrawing(const Drawing &drawing) override;
    void play(const Animation &animation, std::function<void()> completion) override;

    /// When a compositing manager has started or ended: goes off the screen where it needs an image
    /// of the screen beneath.
    void uncoverScreen();
    /// Then: shows itself as the screen is blended now.
    void showAnew();

  private:
    drawing::OverlayScene::Blending blending() const;
    void moveTo(const Rectangle &frame);
    /// Where the window is on the screen, which is the scene's part.
    QRect windowFrame() const;
    /// Paints everything over the screen as it is now.
    void paint();
    void takeFocus();
    void handle(const xcb_generic_event_t &event);
    /// May destroy the overlay.
    void handleMouse(const xcb_button_press_event_t &event);

    const BorderlessWindow traits_;
    const platform::OverlayEvents events_;
    XcbEvents &server_;
    const Screens &screens_;
    ScreenBeneath &beneath_;
    OverlayKeyboard &keyboard_;
    OverlayCanvas canvas_;
    OverlaySurface &surface_;
    drawing::OverlayContent content_;
    /// In the root window's pixels.
    QRect frame_;
    drawing::OverlayScene scene_;
    bool isShown_ = false;
    bool hasKeyboard_ = false;
    XcbEvents::Subscription mouse_;
};

} // namespace corvane::x11
