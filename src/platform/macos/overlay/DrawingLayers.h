#pragma once

#include "platform/macos/support/CFReference.h"
#include "presentation/Drawing.h"

#import <AppKit/AppKit.h>
#import <QuartzCore/QuartzCore.h>

NS_ASSUME_NONNULL_BEGIN

namespace corvane::macos {

/// The outline as a layer takes it.
CFReference<CGPathRef> layerPath(const Path &path);

/// Shows the shape in the layer, in the shades and at the density of the view that holds it.
void showShape(CAShapeLayer *layer, const Shape &shape, NSView *view);

/// A drawing as layers of a layer-backed view, one for each item. The window server draws them: a
/// picture as large as a screen needs no memory of its own and changes without being painted anew.
/// Main thread.
class DrawingLayers {
  public:
    /// Shows the drawing back to front, below the view's other layers.
    void show(const Drawing &drawing, NSView *view);

  private:
    void makeLayers(const Drawing &drawing, NSView *view);

    NSMutableArray<CALayer *> *layers_ = [NSMutableArray array];
};

} // namespace corvane::macos

NS_ASSUME_NONNULL_END
