#pragma once

#include "platform/drawing/OverlayPainter.h"
#include "platform/drawing/OverlayScene.h"
#include "platform/x11/overlay/OverlayImage.h"
#include "presentation/Animation.h"

#include <chrono>
#include <cstddef>
#include <memory>
#include <optional>
#include <vector>

namespace corvane::x11 {

/// The pictures of an animation over a scene, each painted when it is first asked for and then
/// shared by everything that plays the same.
class OverlayAnimation {
  public:
    using Duration = std::chrono::steady_clock::duration;

    static constexpr std::chrono::microseconds pictureInterval{16667};

    /// The painter and the visual outlive the animation.
    OverlayAnimation(const drawing::OverlayPainter &painter, const OverlayVisual &visual,
                     drawing::OverlayScene scene, Animation animation);

    bool plays(const drawing::OverlayScene &scene, const Animation &animation) const {
        return animation_ == animation && scene_ == scene;
    }
    const Animation &animation() const { return animation_; }
    QSize size() const { return scene_.part.size(); }

    /// Which picture is shown that long after the start.
    std::size_t indexAt(Duration elapsed) const;
    bool isOverAt(Duration elapsed) const { return elapsed >= animation_.duration; }
    const OverlayImage &picture(std::size_t index);

  private:
    std::unique_ptr<OverlayImage> painted(std::size_t index) const;
    Shape shapeAt(double progress) const;
    std::optional<QRgb> onlyColour() const;

    const drawing::OverlayPainter &painter_;
    const OverlayVisual &visual_;
    const drawing::OverlayScene scene_;
    const Animation animation_;
    std::vector<std::unique_ptr<OverlayImage>> pictures_;
};

} // namespace corvane::x11
