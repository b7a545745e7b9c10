#pragma once

#include "platform/OverlayWindows.h"
#include "platform/drawing/OverlayScene.h"
#include "platform/x11/overlay/OverlayImage.h"
#include "platform/x11/overlay/OverlayPlayback.h"
#include "platform/x11/overlay/OverlaySurface.h"

#include <QImage>
#include <QRect>
#include <QRegion>
#include <QTimer>

#include <chrono>
#include <memory>

namespace corvane::x11 {

class OverlayStage;

/// A window over all others, blended with the screen where a compositing manager runs and cut to
/// its shape where none does.
class Overlay final : public platform::NativeOverlay {
  public:
    /// The stage outlives the overlay.
    Overlay(OverlayStage &stage, const BorderlessWindow &window, platform::OverlayEvents events);
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

    xcb_window_t window() const { return surface_->window(); }

    /// A press, a release or a motion on its window. May destroy the overlay.
    void handleMouse(const xcb_button_press_event_t &event);

    /// A compositing manager has come or gone: first every overlay that needs to see what lies
    /// beneath goes off the screen, then each shows itself in the new way.
    void uncoverBackdrop();
    void blendingChanged();

  private:
    using Clock = std::chrono::steady_clock;

    QRect pixelsOf(const Rectangle &frame) const;
    QRect shownPart() const;
    /// Puts the window where that part is, as far as the server can count.
    void place();
    void takeFocus();
    drawing::OverlayScene::Blending blending() const;
    drawing::OverlayScene scene() const;
    bool isEmpty() const;
    void map();
    /// Shows everything anew.
    void repaint();
    /// Shows what has changed since the drawing was shown last.
    void repaintChanges();
    bool canRepaintParts() const;
    void repaintSoon();

    OverlayStage &stage_;
    const BorderlessWindow traits_;
    const platform::OverlayEvents events_;
    /// In the root window's pixels.
    QRect frame_;
    /// What the window shows of it, from its top left corner.
    QRect part_;
    Drawing drawing_;
    /// What the picture holds.
    Drawing shownDrawing_;
    /// The screen beneath, where it cannot be seen through the window.
    QImage backdrop_;
    bool isShown_ = false;
    bool hasKeyboard_ = false;
    std::unique_ptr<OverlaySurface> surface_;
    std::unique_ptr<OverlayImage> picture_;
    std::unique_ptr<OverlayPlayback> playback_;
    Clock::time_point lastRepaint_;
    std::unique_ptr<QTimer> repaintTimer_;
};

} // namespace corvane::x11
