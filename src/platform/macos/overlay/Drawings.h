#pragma once

#include "platform/macos/support/CFReference.h"
#include "presentation/Drawing.h"

#import <AppKit/AppKit.h>

namespace corvane::macos {

/// Draws into the current graphics context, back to front.
void draw(const Drawing &drawing);

/// Everything that the drawing touches; null for an empty one.
CGRect drawnArea(const Drawing &drawing);

/// The outline as a layer takes it.
CFReference<CGPathRef> layerPath(const Path &path);

} // namespace corvane::macos
