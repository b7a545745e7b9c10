#import "platform/macos/overlay/Drawings.h"

#import "platform/macos/support/Colours.h"
#import "platform/macos/support/Geometry.h"
#import "platform/macos/support/Symbols.h"

#include <algorithm>

namespace corvane::macos {

namespace {

NSBezierPath *bezierPath(const Path &path) {
    const NSRect bounds = systemRectangle(path.bounds);
    switch (path.kind) {
    case Path::Kind::rectangle:
        return [NSBezierPath bezierPathWithRect:bounds];
    case Path::Kind::roundedRectangle:
        return [NSBezierPath bezierPathWithRoundedRect:bounds
                                               xRadius:path.cornerRadius
                                               yRadius:path.cornerRadius];
    case Path::Kind::ellipse:
        return [NSBezierPath bezierPathWithOvalInRect:bounds];
    }
}

NSCompositingOperation currentOperation() {
    NSGraphicsContext *context = NSGraphicsContext.currentContext;
    return context == nil ? NSCompositingOperationSourceOver : context.compositingOperation;
}

void fill(const Path &path, const Colour &colour) {
    [systemColour(colour) setFill];
    if (path.kind == Path::Kind::rectangle) {
        NSRectFillUsingOperation(systemRectangle(path.bounds), currentOperation());
    } else {
        [bezierPath(path) fill];
    }
}

void stroke(const Shape &shape) {
    NSBezierPath *line = bezierPath(shape.path);
    line.lineWidth = shape.lineWidth;
    if (!shape.dashPattern.empty()) {
        [line setLineDash:shape.dashPattern.data()
                    count:static_cast<NSInteger>(shape.dashPattern.size())
                    phase:0];
    }
    [systemColour(*shape.stroke) setStroke];
    [line stroke];
}

void drawItem(const Shape &shape) {
    if (shape.fill) {
        fill(shape.path, *shape.fill);
    }
    if (shape.stroke) {
        stroke(shape);
    }
}

void drawItem(const SymbolDrawing &drawing) {
    NSImage *symbol = symbolImage(drawing.symbol);
    if (symbol == nil) {
        return;
    }
    [tintedCopy(symbol, systemColour(drawing.colour)) drawInRect:systemRectangle(drawing.frame)
                                                        fromRect:NSZeroRect
                                                       operation:NSCompositingOperationSourceOver
                                                        fraction:1.0];
}

CGRect touchedArea(const Shape &shape) {
    const CGFloat overhang = shape.stroke ? shape.lineWidth / 2 : 0;
    return CGRectInset(systemRectangle(shape.path.bounds), -overhang, -overhang);
}

CGRect touchedArea(const SymbolDrawing &drawing) { return systemRectangle(drawing.frame); }

} // namespace

void draw(const Drawing &drawing) {
    for (const auto &item : drawing) {
        std::visit([](const auto &kind) { drawItem(kind); }, item);
    }
}

CGRect drawnArea(const Drawing &drawing) {
    CGRect area = CGRectNull;
    for (const auto &item : drawing) {
        area =
            CGRectUnion(area, std::visit([](const auto &kind) { return touchedArea(kind); }, item));
    }
    return area;
}

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

} // namespace corvane::macos
