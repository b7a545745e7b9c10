#include "platform/x11/overlay/OverlayAnimation.h"

#include "platform/drawing/QtColour.h"

#include <QEasingCurve>

#include <algorithm>
#include <cmath>
#include <utility>

namespace corvane::x11 {

namespace {

double eased(TimingFunction timing, double progress) {
    switch (timing) {
    case TimingFunction::linear:
        return progress;
    case TimingFunction::easeOut: {
        QEasingCurve curve(QEasingCurve::BezierSpline);
        curve.addCubicBezierSegment({0, 0}, {0.58, 1}, {1, 1});
        return curve.valueForProgress(progress);
    }
    }
    return progress;
}

Rectangle between(const Rectangle &start, const Rectangle &end, double progress) {
    return {std::lerp(start.x, end.x, progress), std::lerp(start.y, end.y, progress),
            std::lerp(start.width, end.width, progress),
            std::lerp(start.height, end.height, progress)};
}

void fade(std::optional<Colour> &colour, double opacity) {
    if (colour) {
        colour->alpha *= opacity;
    }
}

std::size_t pictureCount(const Animation &animation) {
    const double pictures = std::chrono::duration<double>(animation.duration) /
                            std::chrono::duration<double>(OverlayAnimation::pictureInterval);
    return static_cast<std::size_t>(std::max(1.0, std::round(pictures))) + 1;
}

} // namespace

OverlayAnimation::OverlayAnimation(const drawing::OverlayPainter &painter,
                                   const OverlayVisual &visual, drawing::OverlayScene scene,
                                   Animation animation)
    : painter_(painter),
      visual_(visual),
      scene_(std::move(scene)),
      animation_(std::move(animation)),
      pictures_(pictureCount(animation_)) {}

std::size_t OverlayAnimation::indexAt(Duration elapsed) const {
    const std::size_t last = pictures_.size() - 1;
    if (isOverAt(elapsed)) {
        return last;
    }
    const auto passed = static_cast<std::size_t>(std::max(Duration(0), elapsed) / pictureInterval);
    return std::min(passed, last - 1);
}

const OverlayImage &OverlayAnimation::picture(std::size_t index) {
    auto &picture = pictures_.at(index);
    if (!picture) {
        picture = painted(index);
    }
    return *picture;
}

std::unique_ptr<OverlayImage> OverlayAnimation::painted(std::size_t index) const {
    const double progress = static_cast<double>(index) / static_cast<double>(pictures_.size() - 1);
    drawing::OverlayScene scene = scene_;
    scene.drawing.emplace_back(shapeAt(progress));
    const QImage image = painter_.paint(scene, scene.part);
    auto picture = std::make_unique<OverlayImage>(visual_, size());
    if (scene.blending == drawing::OverlayScene::Blending::cutOut) {
        picture->cutOut(image);
    }
    if (const auto colour = onlyColour()) {
        picture->fill(*colour);
    } else {
        picture->put(image, QPoint());
    }
    return picture;
}

/// The one that all pictures have, of which only the outlines differ.
std::optional<QRgb> OverlayAnimation::onlyColour() const {
    const Shape &shape = animation_.shape;
    if (scene_.blending != drawing::OverlayScene::Blending::cutOut || !scene_.drawing.empty() ||
        shape.fill.has_value() == shape.stroke.has_value()) {
        return std::nullopt;
    }
    const Colour &colour = shape.fill ? *shape.fill : *shape.stroke;
    return drawing::qtColour({colour.name, 1}).rgb();
}

Shape OverlayAnimation::shapeAt(double progress) const {
    const double moved = eased(animation_.timing, progress);
    const double opacity = std::lerp(animation_.startOpacity, animation_.endOpacity, moved);
    Shape shape = animation_.shape;
    shape.path.bounds = between(shape.path.bounds, animation_.endPath.bounds, moved);
    shape.path.cornerRadius =
        std::lerp(shape.path.cornerRadius, animation_.endPath.cornerRadius, moved);
    // What cannot be blended cannot fade either: it stays until it is gone.
    const bool fades = scene_.blending != drawing::OverlayScene::Blending::cutOut || opacity <= 0;
    if (fades) {
        fade(shape.fill, opacity);
        fade(shape.stroke, opacity);
    }
    return shape;
}

} // namespace corvane::x11
