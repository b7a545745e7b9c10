#import "platform/macos/statusitem/MacStatusDotView.h"

#import "platform/macos/support/Colours.h"
#import "platform/macos/support/Geometry.h"

#import <QuartzCore/QuartzCore.h>

namespace macos = corvane::macos;

@implementation MacStatusDotView {
    corvane::StatusDot _dot;
}

- (instancetype)initWithDot:(const corvane::StatusDot &)dot {
    self = [super initWithFrame:macos::systemRectangle(dot.frame)];
    if (self != nil) {
        _dot = dot;
        self.wantsLayer = YES;
    }
    return self;
}

/// Clicks are the button's.
- (NSView *)hitTest:(NSPoint)point {
    return nil;
}

- (BOOL)wantsUpdateLayer {
    return YES;
}

/// Called again whenever the appearance changes.
- (void)updateLayer {
    self.layer.backgroundColor = macos::systemColour(_dot.colour).CGColor;
    self.layer.cornerRadius = _dot.cornerRadius;
}

@end
