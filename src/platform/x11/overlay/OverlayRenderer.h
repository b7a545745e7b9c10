#pragma once

#include "platform/drawing/FrameImages.h"
#include "platform/drawing/OverlayContent.h"
#include "platform/drawing/OverlayPainter.h"
#include "platform/x11/overlay/OverlayImage.h"
#include "platform/x11/overlay/OverlaySurface.h"

#include <QRegion>

#include <cstddef>
#include <memory>

namespace corvane::x11 {

/// Paints scenes into images on the server. Main thread.
class OverlayRenderer {
  public:
    /// Both outlive the renderer, which outlives everything it returns.
    OverlayRenderer(const OverlayVisual &visual, drawing::SymbolImages &symbols);

    std::unique_ptr<OverlayImage> paint(const drawing::OverlayScene &scene) const;

    /// Paints a region of the scene's part, in pixels from the part's top left corner, into the
    /// image of that part.
    void repaint(OverlayImage &image, const drawing::OverlayScene &scene,
                 const QRegion &region) const;

    /// The frames of an animation over a scene.
    std::shared_ptr<drawing::FrameImages<OverlayImage>::Sequence>
    frames(const drawing::OverlayScene &scene, const Animation &animation) {
        return frames_.of(scene, animation);
    }

    /// One of the few stills that may be on the screen together, for as long as it is held; null
    /// where there are enough.
    std::shared_ptr<const void> takeStill() const;

  private:
    std::shared_ptr<const OverlayImage> paint(const drawing::AnimationFrames &frames,
                                              std::size_t index) const;

    const OverlayVisual &visual_;
    const drawing::OverlayPainter painter_;
    drawing::FrameImages<OverlayImage> frames_;
    /// Shared by the stills that are on the screen.
    const std::shared_ptr<const bool> stills_ = std::make_shared<const bool>();
};

/// A surface with the image of the scene that it shows. Main thread.
class OverlayCanvas final : public drawing::OverlayCanvas {
  public:
    /// The renderer outlives the canvas.
    OverlayCanvas(OverlaySurfaces::Lease surface, OverlayRenderer &renderer)
        : renderer_(renderer),
          surface_(std::move(surface)) {}

    OverlaySurface &surface() { return *surface_; }

    /// Whether nothing has been painted yet but empty scenes.
    bool isBlank() const { return isBlank_; }

    void paint(const drawing::OverlayScene &scene) override;
    drawing::OverlayPlayback::Show frames(const drawing::OverlayScene &scene,
                                          const Animation &animation) override;

  private:
    drawing::OverlayPlayback::Show
    still(const std::shared_ptr<drawing::FrameImages<OverlayImage>::Sequence> &frames);
    bool canRepaint(const drawing::OverlayScene &scene) const;

    OverlayRenderer &renderer_;
    const OverlaySurfaces::Lease surface_;
    /// Null until a scene is painted.
    std::unique_ptr<OverlayImage> image_;
    drawing::OverlayScene painted_;
    bool isBlank_ = true;
};

} // namespace corvane::x11
