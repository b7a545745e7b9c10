#import "platform/macos/overlay/MacOverlayView.h"

#import "platform/macos/overlay/DrawingLayers.h"
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
    corvane::Drawing _drawing;
    macos::DrawingLayers _drawingLayers;
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
    _drawing = drawing;
    _drawingLayers.show(_drawing, self);
}

- (void)reset {
    [_animatedLayer removeAllAnimations];
    _animatedLayer.opacity = 0;
    [self setDrawing:{}];
}

/// Unlike what is painted, layers do not follow a change of the appearance or of the screen.
- (void)viewDidChangeEffectiveAppearance {
    [super viewDidChangeEffectiveAppearance];
    _drawingLayers.show(_drawing, self);
}

- (void)viewDidChangeBackingProperties {
    [super viewDidChangeBackingProperties];
    _drawingLayers.show(_drawing, self);
}

- (void)play:(const corvane::Animation &)animation completion:(std::function<void()>)completion {
    [CATransaction begin];
    // Only the group moves the layer, nothing that the system adds by itself.
    [CATransaction setDisableActions:YES];
    [CATransaction setCompletionBlock:^{
      @autoreleasepool {
          completion();
      }
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
    [self reportKey:event.keyCode == escapeKeyCode ? Key::escape : Key::other];
}

- (void)reportKey:(Key)key {
    // A copy: the receiver may destroy this overlay.
    if (const auto keyDown = _events.keyDown) {
        keyDown(key);
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
