#import "platform/macos/overlay/MacOverlayWindow.h"

#import "platform/macos/support/Colours.h"
#import "platform/macos/support/Geometry.h"

namespace macos = corvane::macos;

namespace {

NSWindowCollectionBehavior collectionBehaviour(const corvane::BorderlessWindow &description) {
    NSWindowCollectionBehavior behaviour = NSWindowCollectionBehaviorDefault;
    if (description.joinsAllSpaces) {
        behaviour |= NSWindowCollectionBehaviorCanJoinAllSpaces;
    }
    if (description.fullScreenAuxiliary) {
        behaviour |= NSWindowCollectionBehaviorFullScreenAuxiliary;
    }
    return behaviour;
}

} // namespace

@implementation MacOverlayWindow

- (instancetype)initWithDescription:(const corvane::BorderlessWindow &)description
                        contentView:(NSView *)contentView {
    self = [super initWithContentRect:macos::systemRectangle(description.frame)
                            styleMask:NSWindowStyleMaskBorderless
                              backing:NSBackingStoreBuffered
                                defer:NO];
    if (self != nil) {
        _windowDescription = description;
        self.releasedWhenClosed = NO;
        self.level = description.level;
        self.opaque = NO;
        self.backgroundColor = macos::systemColour(description.background);
        self.hasShadow = NO;
        self.animationBehavior = NSWindowAnimationBehaviorNone;
        // What the user only looks at stays when the program gives the keyboard back by hiding.
        self.canHide = !description.ignoresMouseEvents;
        self.ignoresMouseEvents = description.ignoresMouseEvents;
        self.acceptsMouseMovedEvents = description.acceptsMouseMovedEvents;
        self.collectionBehavior = collectionBehaviour(description);
        self.contentView = contentView;
        // Keys go to the view from the moment the window has the keyboard, not from the first
        // click.
        self.initialFirstResponder = contentView;
    }
    return self;
}

- (BOOL)canBecomeKeyWindow {
    return _windowDescription.canBecomeKey;
}

- (BOOL)canBecomeMainWindow {
    return _windowDescription.canBecomeKey;
}

/// A picker may lie above an alert that has opened later, whose buttons it covers: it can be drawn
/// in or cancelled all the same.
- (BOOL)worksWhenModal {
    return _windowDescription.canBecomeKey;
}

@end
