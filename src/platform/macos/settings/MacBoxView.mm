#import "platform/macos/settings/MacBoxView.h"

#import "platform/macos/settings/Styles.h"

#import <QuartzCore/QuartzCore.h>

namespace macos = corvane::macos;

@implementation MacBoxView {
    std::optional<corvane::Background> _background;
}

- (instancetype)initWithFrame:(NSRect)frame {
    self = [super initWithFrame:frame];
    if (self != nil) {
        self.wantsLayer = YES;
        // A capsule's corners depend on its height.
        self.layerContentsRedrawPolicy = NSViewLayerContentsRedrawDuringViewResize;
    }
    return self;
}

- (BOOL)isFlipped {
    return YES;
}

- (void)setBackground:(const std::optional<corvane::Background> &)background {
    if (background != _background) {
        _background = background;
        self.needsDisplay = YES;
    }
}

- (BOOL)wantsUpdateLayer {
    return YES;
}

/// Called again whenever the appearance changes.
- (void)updateLayer {
    if (!_background) {
        self.layer.backgroundColor = nullptr;
        return;
    }
    const bool isCapsule = _background->shape == corvane::BackgroundShape::capsule;
    self.layer.backgroundColor = macos::backgroundColour(_background->fill).CGColor;
    self.layer.cornerCurve = isCapsule ? kCACornerCurveCircular : kCACornerCurveContinuous;
    self.layer.cornerRadius = isCapsule ? self.bounds.size.height / 2 : _background->cornerRadius;
}

@end
