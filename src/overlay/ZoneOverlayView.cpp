#include "overlay/ZoneOverlayView.h"

namespace corvane {

namespace {

constexpr double outlineWidth = 1.5;
constexpr double badgeSide = 22;
constexpr double badgeCornerRadius = 5;
constexpr double iconSide = 12;
constexpr double iconInset = 5;

} // namespace

Drawing ZoneOverlayView::drawing(Size bounds) {
    const Rectangle zone{0, 0, bounds.width, bounds.height - badgeOverhang};
    const Colour green{ColourName::systemGreen};
    return {Shape{.path = {.kind = Path::Kind::rectangle, .bounds = zone},
                  .fill = Colour{ColourName::systemGreen, 0.15}},
            Shape{.path = {.kind = Path::Kind::rectangle, .bounds = zone.insetBy(outlineWidth / 2)},
                  .stroke = green,
                  .lineWidth = outlineWidth},
            Shape{.path = {.kind = Path::Kind::roundedRectangle,
                           .bounds = {0, zone.maxY(), badgeSide, badgeSide},
                           .cornerRadius = badgeCornerRadius},
                  .fill = Colour{ColourName::systemGreen, 0.85}},
            SymbolDrawing{.symbol = {.name = "cursorarrow.click.2",
                                     .pointSize = 12,
                                     .weight = FontWeight::medium},
                          .colour = {ColourName::white},
                          .frame = {iconInset, zone.maxY() + iconInset, iconSide, iconSide}}};
}

} // namespace corvane
