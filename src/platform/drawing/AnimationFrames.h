#pragma once

#include "platform/drawing/OverlayPainter.h"
#include "platform/drawing/OverlayScene.h"
#include "presentation/Animation.h"

#include <QImage>
#include <QRgb>

#include <chrono>
#include <cstddef>
#include <optional>

namespace corvane::drawing {

/// When the frames of an animation are shown. They are numbered from 0.
class FrameTimes {
  public:
    using Duration = std::chrono::nanoseconds;

    /// From one frame to the next.
    static constexpr std::chrono::microseconds interval{16667};

    explicit FrameTimes(Duration length);

    std::size_t count() const { return count_; }
    /// The frame to be seen that long after the start.
    std::size_t indexAt(Duration elapsed) const;
    bool isOverAt(Duration elapsed) const { return elapsed >= length_; }

  private:
    const Duration length_;
    const std::size_t count_;
};

/// The frames of an animation over a scene. They are painted anew with each call: back ends keep
/// them in their own form. Main thread.
class AnimationFrames {
  public:
    /// The painter outlives the frames.
    AnimationFrames(const OverlayPainter &painter, OverlayScene scene, Animation animation);

    /// Whether these are the frames of that animation over that scene.
    bool match(const OverlayScene &scene, const Animation &animation) const {
        return animation_ == animation && scene_ == scene;
    }
    const OverlayScene &scene() const { return scene_; }
    std::size_t count() const { return count_; }

    /// The part of the scene that the window shows; premultiplied 32-bit.
    QImage paint(std::size_t index) const;

    /// The colour that all visible pixels of all frames have, where the frames differ in their
    /// outlines only.
    std::optional<QRgb> onlyColour() const;

  private:
    Shape shapeAt(double progress) const;

    const OverlayPainter &painter_;
    const OverlayScene scene_;
    const Animation animation_;
    const std::size_t count_;
};

} // namespace corvane::drawing
