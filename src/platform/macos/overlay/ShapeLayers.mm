#import "platform/macos/overlay/ShapeLayers.h"

#import "platform/macos/overlay/Drawings.h"
#import "platform/macos/support/Colours.h"

#include <algorithm>

namespace corvane::macos {

namespace {

CGColorRef layerColour(const std::optional<Colour> &colour) {
    return colour ? systemColour(*colour).CGColor : nullptr;
}

/// Nothing for a solid line.
NSArray<NSNumber *> *dashPattern(const Shape &shape) {
    if (shape.dashPattern.empty()) {
        return nil;
    }
    NSMutableArray<NSNumber *> *pattern = [NSMutableArray array];
    for (const double length : shape.dashPattern) {
        [pattern addObject:@(length)];
    }
    return pattern;
}

} // namespace

void showShape(CAShapeLayer *layer, const Shape &shape, NSView *view) {
    [view.effectiveAppearance performAsCurrentDrawingAppearance:^{
      layer.fillColor = layerColour(shape.fill);
      layer.strokeColor = layerColour(shape.stroke);
    }];
    layer.lineWidth = shape.lineWidth;
    layer.lineDashPattern = dashPattern(shape);
    layer.path = layerPath(shape.path).get();
    if (NSWindow *window = view.window) {
        // A layer of one's own does not learn the density of the screen by itself.
        layer.contentsScale = window.backingScaleFactor;
    }
}

bool isOfShapes(const Drawing &drawing) {
    return std::ranges::all_of(
        drawing, [](const auto &item) { return std::holds_alternative<Shape>(item); });
}

void ShapeLayers::show(const Drawing &drawing, NSView *view) {
    [CATransaction begin];
    // The shapes follow the pointer; nothing glides or fades.
    [CATransaction setDisableActions:YES];
    makeAsMany(drawing.size(), view);
    for (std::size_t index = 0; index < drawing.size(); ++index) {
        showShape(layers_[index], std::get<Shape>(drawing[index]), view);
    }
    [CATransaction commit];
}

void ShapeLayers::makeAsMany(std::size_t count, NSView *view) {
    while (layers_.count > count) {
        [layers_.lastObject removeFromSuperlayer];
        [layers_ removeLastObject];
    }
    while (layers_.count < count) {
        CAShapeLayer *layer = [CAShapeLayer layer];
        [view.layer insertSublayer:layer atIndex:static_cast<unsigned>(layers_.count)];
        [layers_ addObject:layer];
    }
}

} // namespace corvane::macos
