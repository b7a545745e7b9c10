#pragma once

#include "platform/drawing/AnimationFrames.h"
#include "platform/drawing/OverlayPainter.h"
#include "platform/x11/overlay/OverlayImage.h"

#include <QRegion>

#include <cstddef>
#include <memory>
#include <vector>

namespace corvane::x11 {

/// The frames of an animation as images on the server, each painted when it is first shown and
/// shared by all windows that play the same.
class OverlayFrames {
  public:
    /// The visual outlives the frames.
    OverlayFrames(const OverlayVisual &visual, drawing::AnimationFrames frames);

    const drawing::AnimationFrames &frames() const { return frames_; }
    const OverlayImage &image(std::size_t index);

  private:
    std::unique_ptr<OverlayImage> paint(std::size_t index) const;

    const OverlayVisual &visual_;
    const drawing::AnimationFrames frames_;
    std::vector<std::unique_ptr<OverlayImage>> images_;
};

/// Paints scenes into images on the server. Main thread.
class OverlayRenderer {
  public:
    /// Both outlive the renderer, which outlives everything it returns.
    OverlayRenderer(const OverlayVisual &visual, drawing::SymbolImages &symbols)
        : visual_(visual),
          painter_(symbols) {}

    std::unique_ptr<OverlayImage> paint(const drawing::OverlayScene &scene) const;

    /// Paints a region of the scene's part, in pixels from the scene's top left corner, into the
    /// image of that part.
    void repaint(OverlayImage &image, const drawing::OverlayScene &scene,
                 const QRegion &region) const;

    /// The frames of an animation over a scene. Those of the last four are kept.
    std::shared_ptr<OverlayFrames> frames(const drawing::OverlayScene &scene,
                                          const Animation &animation);

  private:
    const OverlayVisual &visual_;
    const drawing::OverlayPainter painter_;
    std::vector<std::shared_ptr<OverlayFrames>> kept_;
};

} // namespace corvane::x11
