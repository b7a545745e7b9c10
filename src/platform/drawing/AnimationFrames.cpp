#include "platform/drawing/AnimationFrames.h"

#include "platform/drawing/QtColour.h"

#include <QEasingCurve>

#include <algorithm>
#include <cmath>
#include <utility>

namespace corvane::drawing {

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

std::size_t frameCount(FrameTimes::Duration length) {
    const double frames =
        std::chrono::duration<double>(length) / std::chrono::duration<double>(FrameTimes::interval);
    return static_cast<std::size_t>(std::max(1.0, std::round(frames))) + 1;
}

} // namespace

FrameTimes::FrameTimes(Duration length) : length_(length), count_(frameCount(length)) {}

std::size_t FrameTimes::indexAt(Duration elapsed) const {
    const std::size_t last = count_ - 1;
    if (isOverAt(elapsed)) {
        return last;
    }
    const auto passed = static_cast<std::size_t>(std::max(Duration(0), elapsed) / interval);
    return std::min(passed, last - 1);
}

AnimationFrames::AnimationFrames(const OverlayPainter &painter, OverlayScene scene,
                                 Animation animation)
    : painter_(painter),
      scene_(std::move(scene)),
      animation_(std::move(animation)),
      count_(FrameTimes(animation_.duration).count()) {}

QImage AnimationFrames::paint(std::size_t index) const {
    const double progress = static_cast<double>(index) / static_cast<double>(count_ - 1);
    OverlayScene scene = scene_;
    scene.drawing.emplace_back(shapeAt(progress));
    return painter_.paint(scene, scene.part);
}

std::optional<QRgb> AnimationFrames::onlyColour() const {
    const Shape &shape = animation_.shape;
    if (scene_.blending != OverlayScene::Blending::cutOut || !scene_.drawing.empty() ||
        shape.fill.has_value() == shape.stroke.has_value()) {
        return std::nullopt;
    }
    const Colour &colour = shape.fill ? *shape.fill : *shape.stroke;
    return qtColour({colour.name, 1}).rgb();
}

Shape AnimationFrames::shapeAt(double progress) const {
    const double moved = eased(animation_.timing, progress);
    const double opacity = std::lerp(animation_.startOpacity, animation_.endOpacity, moved);
    Shape shape = animation_.shape;
    shape.path.bounds = between(shape.path.bounds, animation_.endPath.bounds, moved);
    shape.path.cornerRadius =
        std::lerp(shape.path.cornerRadius, animation_.endPath.cornerRadius, moved);
    // Without blending a shape cannot fade: it stays opaque until it is gone.
    const bool fades = scene_.blending != OverlayScene::Blending::cutOut || opacity <= 0;
    if (fades) {
        fade(shape.fill, opacity);
        fade(shape.stroke, opacity);
    }
    return shape;
}

} // namespace corvane::drawing
