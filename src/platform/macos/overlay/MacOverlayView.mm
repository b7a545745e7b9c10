#import "platform/macos/overlay/MacOverlayView.h"

#import "platform/macos/overlay/Drawings.h"
#import "platform/macos/overlay/ShapeLayers.h"
#import "platform/macos/support/Geometry.h"

#import <QuartzCore/QuartzCore.h>

#include <chrono>
#include <utility>

using corvane::platform::Key;
using corvane::platform::OverlayEvents;
namespace macos = corvane::macos;

namespace {

constexpr unsigned short escapeKeyCode = 53;

CAMediaTimingFunction *timingFunction(corvane::TimingFunction timing) {
    switch (timing) {
    case corvane::TimingFunction::linear:
        return [CAMediaTimingFunction functionWithName:kCAMediaTimingFunctionLinear];
    case corvane::TimingFunction::easeOut:
        return [CAMediaTimingFunction functionWithName:kCAMediaTimingFunctionEaseOut];
    }
}

CABasicAnimation *basicAnimation(NSString *keyPath, id from, id to) {
    CABasicAnimation *animation = [CABasicAnimation animationWithKeyPath:keyPath];
    animation.fromValue = from;
    animation.toValue = to;
    return animation;
}

CAAnimationGroup *animationGroup(const corvane::Animation &animation) {
    const auto startPath = macos::layerPath(animation.shape.path);
    const auto endPath = macos::layerPath(animation.endPath);
    CAAnimationGroup *group = [CAAnimationGroup animation];
    group.animations = @[
        basicAnimation(@"path", (__bridge id)startPath.get(), (__bridge id)endPath.get()),
        basicAnimation(@"opacity", @(animation.startOpacity), @(animation.endOpacity))
    ];
    group.duration = std::chrono::duration<double>(animation.duration).count();
    group.timingFunction = timingFunction(animation.timing);
    group.removedOnCompletion = NO;
    group.fillMode = kCAFillModeForwards;
    return group;
}

} // namespace

@implementation MacOverlayView {
    OverlayEvents _events;
    corvane::Cursor _cursor;
    /// What is painted.
    corvane::Drawing _drawing;
    /// What is shown in layers.
    corvane::Drawing _shapes;
    macos::ShapeLayers _shapeLayers;
    CAShapeLayer *_animatedLayer;
}

- (instancetype)initWithEvents:(OverlayEvents)events cursor:(corvane::Cursor)cursor {
    self = [super initWithFrame:NSZeroRect];
    if (self != nil) {
        _events = std::move(events);
        _cursor = cursor;
        _animatedLayer = [CAShapeLayer layer];
        _animatedLayer.opacity = 0;
        self.wantsLayer = YES;
        [self.layer addSublayer:_animatedLayer];
    }
    return self;
}

- (void)setDrawing:(const corvane::Drawing &)drawing {
    const bool isOfShapes = macos::isOfShapes(drawing);
    [self paint:isOfShapes ? corvane::Drawing() : drawing];
    _shapes = isOfShapes ? drawing : corvane::Drawing();
    _shapeLayers.show(_shapes, self);
}

- (void)paint:(const corvane::Drawing &)drawing {
    [self redraw:macos::drawnArea(_drawing)];
    _drawing = drawing;
    [self redraw:macos::drawnArea(_drawing)];
}

- (void)redraw:(CGRect)area {
    if (!CGRectIsNull(area)) {
        [self setNeedsDisplayInRect:area];
    }
}

- (void)drawRect:(NSRect)dirtyRect {
    [super drawRect:dirtyRect];
    macos::draw(_drawing);
}

- (void)viewDidChangeEffectiveAppearance {
    [super viewDidChangeEffectiveAppearance];
    // Unlike a painted colour, a layer's does not follow by itself.
    _shapeLayers.show(_shapes, self);
}

- (void)play:(const corvane::Animation &)animation completion:(std::function<void()>)completion {
    [CATransaction begin];
    // Only the group moves the layer, nothing that the system adds by itself.
    [CATransaction setDisableActions:YES];
    [CATransaction setCompletionBlock:^{
      completion();
    }];
    macos::showShape(_animatedLayer, animation.shape, self);
    _animatedLayer.opacity = static_cast<float>(animation.startOpacity);
    [_animatedLayer addAnimation:animationGroup(animation) forKey:@(animation.key.c_str())];
    [CATransaction commit];
}

- (void)disconnect {
    _events = {};
}

- (BOOL)acceptsFirstResponder {
    return YES;
}

- (BOOL)acceptsFirstMouse:(NSEvent *)event {
    return YES;
}

- (void)resetCursorRects {
    if (_cursor == corvane::Cursor::crosshair) {
        [self addCursorRect:self.bounds cursor:NSCursor.crosshairCursor];
    }
}

- (void)mouseDown:(NSEvent *)event {
    [self report:event to:_events.mouseDown];
}

- (void)mouseDragged:(NSEvent *)event {
    [self report:event to:_events.mouseDragged];
}

- (void)mouseUp:(NSEvent *)event {
    [self report:event to:_events.mouseUp];
}

- (void)keyDown:(NSEvent *)event {
    // A copy: the receiver may destroy this overlay.
    if (const auto keyDown = _events.keyDown) {
        keyDown(event.keyCode == escapeKeyCode ? Key::escape : Key::other);
    }
}

/// Drops what was on its way when the window was ordered out. The receiver comes as a copy, because
/// it may destroy this overlay.
- (void)report:(NSEvent *)event to:(std::function<void(corvane::Point)>)receiver {
    NSWindow *window = self.window;
    if (receiver && window.visible) {
        receiver(macos::portablePoint([window convertPointToScreen:event.locationInWindow]));
    }
}

@end
