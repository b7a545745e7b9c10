#pragma once

#include "platform/drawing/OverlayScene.h"
#include "platform/x11/overlay/OverlayAnimator.h"
#include "platform/x11/overlay/OverlayRenderer.h"
#include "platform/x11/overlay/OverlaySurface.h"

#include <QTimer>

#include <chrono>
#include <functional>
#include <memory>

namespace corvane::x11 {

/// A surface and what it shows: a scene, or an animation over it. Main thread.
class OverlayContent {
  public:
    /// The renderer and the animator outlive the content.
    OverlayContent(OverlaySurfaces::Lease surface, OverlayRenderer &renderer,
                   OverlayAnimator &animator);

    OverlaySurface &surface() { return *surface_; }

    /// Paints the whole scene.
    void show(const drawing::OverlayScene &scene);

    /// Paints what differs from the scene's drawing; at once, or 8 ms after it was painted last.
    void show(const Drawing &drawing);

    /// Plays an animation over a scene, then calls `completion` once. False where nothing of it is
    /// shown, because each picture would take a new window and enough are on the screen.
    bool play(const drawing::OverlayScene &scene, const Animation &animation,
              std::function<void()> completion);

  private:
    using Clock = std::chrono::steady_clock;

    void paint();
    bool canPaintChanges() const;
    void paintChanges();

    OverlayRenderer &renderer_;
    OverlayAnimator &animator_;
    const OverlaySurfaces::Lease surface_;
    drawing::OverlayScene scene_;
    /// The scene with the drawing that was painted last.
    std::unique_ptr<OverlayImage> image_;
    Drawing paintedDrawing_;
    std::unique_ptr<OverlayPlayback> playback_;
    Clock::time_point lastPaint_;
    std::unique_ptr<QTimer> paintTimer_;
};

} // namespace corvane::x11
