#pragma once

#include "platform/drawing/OverlayAnimator.h"
#include "platform/drawing/OverlayScene.h"

#include <QTimer>

#include <chrono>
#include <functional>
#include <memory>

namespace corvane::drawing {

/// What scenes are painted on: the windows that one overlay consists of.
class OverlayCanvas {
  public:
    virtual ~OverlayCanvas() = default;

    /// Shows a scene, painting what differs from the one before.
    virtual void paint(const OverlayScene &scene) = 0;

    /// What shows the frames of an animation over a scene.
    virtual OverlayPlayback::Show frames(const OverlayScene &scene, const Animation &animation) = 0;
};

/// What an overlay shows: a scene, or an animation over it. Main thread.
class OverlayContent {
  public:
    /// Both outlive the content.
    OverlayContent(OverlayCanvas &canvas, OverlayAnimator &animator);

    /// Paints at once.
    void show(const OverlayScene &scene);

    /// Paints at once, or 8 ms after it was painted last.
    void showSoon(const OverlayScene &scene);

    /// Plays an animation over a scene, then calls `completion` once. Later scenes are shown
    /// beneath it, also after its end.
    void play(const OverlayScene &scene, const Animation &animation,
              std::function<void()> completion);

  private:
    using Clock = std::chrono::steady_clock;

    void paint();

    OverlayCanvas &canvas_;
    OverlayAnimator &animator_;
    OverlayScene scene_;
    std::unique_ptr<OverlayPlayback> playback_;
    Clock::time_point lastPaint_;
    /// Made when it is first needed: most overlays are ripples, which never change.
    std::unique_ptr<QTimer> paintTimer_;
};

} // namespace corvane::drawing
