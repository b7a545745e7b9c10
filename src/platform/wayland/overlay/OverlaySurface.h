#pragma once

#include "platform/drawing/OverlayPainter.h"
#include "platform/drawing/OverlayScene.h"
#include "platform/wayland/connection/LayerSurface.h"
#include "platform/wayland/connection/SharedImage.h"

#include <QRegion>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace corvane::wayland {

/// An overlay on one output. Main thread.
class OverlaySurface {
  public:
    /// Calls `closed` when the compositor has taken the surface off the screen; the owner then
    /// destroys it, not from within the call. Connection and painter outlive the surface.
    OverlaySurface(const Connection &connection, const Output &output,
                   const LayerSurface::Traits &traits, const drawing::OverlayPainter &painter,
                   std::function<void()> closed);

    wl_surface *get() const { return layer_.get(); }

    /// In global display space and whole logical pixels.
    void place(const Rectangle &frame);

    /// Shows a scene as soon as the compositor allows it; only what differs from the one before is
    /// painted.
    void paint(const drawing::OverlayScene &scene);

    /// Shows an image that does not change any more.
    void show(std::shared_ptr<const SharedImage> image);

  private:
    /// An image of a scene, painted anew in turns with others while the compositor reads those.
    struct Canvas {
        std::unique_ptr<SharedImage> image;
        drawing::OverlayScene scene;
    };

    void update();
    Canvas &freeCanvas(const drawing::OverlayScene &scene);
    void attach(const SharedImage &image, const QRegion &changed);

    const Connection &connection_;
    const drawing::OverlayPainter &painter_;
    bool isConfigured_ = false;
    LayerSurface layer_;
    std::optional<drawing::OverlayScene> scene_;
    /// Shown instead of the scene.
    std::shared_ptr<const SharedImage> image_;
    std::vector<Canvas> canvases_;
    /// What the surface shows of scenes.
    std::optional<drawing::OverlayScene> shown_;
};

} // namespace corvane::wayland
