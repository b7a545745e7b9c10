#import "platform/macos/settings/MacLinkView.h"

@implementation MacLinkView

- (instancetype)initWithFrame:(NSRect)frame {
    self = [super initWithFrame:frame];
    if (self != nil) {
        self.accessibilityElement = YES;
        self.accessibilityRole = NSAccessibilityLinkRole;
    }
    return self;
}

- (BOOL)isFlipped {
    return YES;
}

/// The label's own views take no part in clicks.
- (NSView *)hitTest:(NSPoint)point {
    return [super hitTest:point] == nil ? nil : self;
}

- (void)mouseDown:(NSEvent *)event {
    // Without the base class's answer the release would go elsewhere.
}

- (void)mouseUp:(NSEvent *)event {
    const NSPoint place = [self convertPoint:event.locationInWindow fromView:nil];
    if (NSPointInRect(place, self.bounds)) {
        [self press];
    }
}

- (void)resetCursorRects {
    [self addCursorRect:self.bounds cursor:NSCursor.pointingHandCursor];
}

- (BOOL)acceptsFirstResponder {
    return NSApp.fullKeyboardAccessEnabled;
}

- (BOOL)canBecomeKeyView {
    return NSApp.fullKeyboardAccessEnabled;
}

- (void)keyDown:(NSEvent *)event {
    if ([event.charactersIgnoringModifiers isEqualToString:@" "]) {
        [self press];
    } else {
        [super keyDown:event];
    }
}

- (void)drawFocusRingMask {
    NSRectFill(self.bounds);
}

- (NSRect)focusRingMaskBounds {
    return self.bounds;
}

- (BOOL)accessibilityPerformPress {
    [self press];
    return YES;
}

- (void)press {
    // A copy: the action may destroy this view.
    if (const auto action = self.action) {
        action();
    }
}

@end
