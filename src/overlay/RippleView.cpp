#include "overlay/RippleView.h"

namespace corvane {

namespace {

constexpr double startRadius = 4;
constexpr double endRadius = 20;
constexpr double ringWidth = 2;
constexpr std::chrono::milliseconds duration{400};

Path circle(Point center, double radius) {
    return {.kind = Path::Kind::ellipse,
            .bounds = {center.x - radius, center.y - radius, 2 * radius, 2 * radius}};
}

} // namespace

Animation RippleView::animation(const Rectangle &bounds) {
    return {.key = "ripple",
            .shape = {.path = circle(bounds.center(), startRadius),
                      .stroke = Colour{ColourName::systemBlue},
                      .lineWidth = ringWidth},
            .endPath = circle(bounds.center(), endRadius),
            .startOpacity = 1,
            .endOpacity = 0,
            .duration = duration,
            .timing = TimingFunction::easeOut};
}

} // namespace corvane
