#import "platform/macos/overlay/DrawingLayers.h"

#import "platform/macos/support/Colours.h"
#import "platform/macos/support/Geometry.h"
#import "platform/macos/support/Symbols.h"

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

/// A layer made by hand does not learn the density of the screen by itself.
CGFloat density(NSView *view) {
    NSWindow *window = view.window;
    return window == nil ? 1 : window.backingScaleFactor;
}

void showSymbol(CALayer *layer, const SymbolDrawing &drawing, NSView *view) {
    layer.frame = systemRectangle(drawing.frame);
    layer.contentsScale = density(view);
    NSImage *symbol = symbolImage(drawing.symbol);
    [view.effectiveAppearance performAsCurrentDrawingAppearance:^{
      NSImage *tinted = symbol == nil ? nil : tintedCopy(symbol, systemColour(drawing.colour));
      layer.contents = [tinted layerContentsForContentsScale:layer.contentsScale];
    }];
}

} // namespace

CFReference<CGPathRef> layerPath(const Path &path) {
    const CGRect bounds = systemRectangle(path.bounds);
    switch (path.kind) {
    case Path::Kind::rectangle:
        return CFReference(CGPathCreateWithRect(bounds, nullptr));
    case Path::Kind::roundedRectangle: {
        const CGFloat radius =
            std::min({path.cornerRadius, CGRectGetWidth(bounds) / 2, CGRectGetHeight(bounds) / 2});
        return CFReference(CGPathCreateWithRoundedRect(bounds, radius, radius, nullptr));
    }
    case Path::Kind::ellipse:
        return CFReference(CGPathCreateWithEllipseInRect(bounds, nullptr));
    }
}

void showShape(CAShapeLayer *layer, const Shape &shape, NSView *view) {
    [view.effectiveAppearance performAsCurrentDrawingAppearance:^{
      layer.fillColor = layerColour(shape.fill);
      layer.strokeColor = layerColour(shape.stroke);
    }];
    layer.lineWidth = shape.lineWidth;
    layer.lineDashPattern = dashPattern(shape);
    layer.path = layerPath(shape.path).get();
    layer.contentsScale = density(view);
}

void DrawingLayers::show(const Drawing &drawing, NSView *view) {
    [CATransaction begin];
    // The shapes follow the pointer; nothing glides or fades.
    [CATransaction setDisableActions:YES];
    makeLayers(drawing, view);
    for (std::size_t index = 0; index < drawing.size(); ++index) {
        CALayer *layer = layers_[index];
        if (const auto *shape = std::get_if<Shape>(&drawing[index])) {
            showShape(static_cast<CAShapeLayer *>(layer), *shape, view);
        } else {
            showSymbol(layer, std::get<SymbolDrawing>(drawing[index]), view);
        }
    }
    [CATransaction commit];
}

/// Keeps the layers from the first one on whose item is still of the same kind.
void DrawingLayers::makeLayers(const Drawing &drawing, NSView *view) {
    const auto kindAt = [&](NSUInteger index) -> Class {
        return std::holds_alternative<Shape>(drawing[index]) ? CAShapeLayer.class : CALayer.class;
    };
    NSUInteger kept = 0;
    while (kept < layers_.count && kept < drawing.size() &&
           [layers_[kept] isMemberOfClass:kindAt(kept)]) {
        ++kept;
    }
    while (layers_.count > kept) {
        [layers_.lastObject removeFromSuperlayer];
        [layers_ removeLastObject];
    }
    while (layers_.count < drawing.size()) {
        CALayer *layer = [kindAt(layers_.count) layer];
        [view.layer insertSublayer:layer atIndex:static_cast<unsigned>(layers_.count)];
        [layers_ addObject:layer];
    }
}

} // namespace corvane::macos
