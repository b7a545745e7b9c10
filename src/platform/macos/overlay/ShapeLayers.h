#pragma once

#include "presentation/Drawing.h"

#import <AppKit/AppKit.h>
#import <QuartzCore/QuartzCore.h>

NS_ASSUME_NONNULL_BEGIN

namespace corvane::macos {

/// Shows the shape in the layer, in the shades and at the density of the view that holds it.
void showShape(CAShapeLayer *layer, const Shape &shape, NSView *view);

/// Whether the drawing consists of shapes, which layers can show.
bool isOfShapes(const Drawing &drawing);

/// Shapes as layers of a layer-backed view. The window server draws them, so that a large one
/// changes without the view being painted anew. Main thread.
class ShapeLayers {
  public:
    /// Replaces what is shown by the shapes of the drawing, back to front and below the view's
    /// other layers.
    void show(const Drawing &drawing, NSView *view);

  private:
    void makeAsMany(std::size_t count, NSView *view);

    NSMutableArray<CAShapeLayer *> *layers_ = [NSMutableArray array];
};

} // namespace corvane::macos

NS_ASSUME_NONNULL_END
