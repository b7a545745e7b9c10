#import "platform/macos/settings/MacActionTarget.h"

#include <utility>

@implementation MacActionTarget {
    std::function<void()> _action;
}

- (instancetype)initWithAction:(std::function<void()>)action {
    self = [super init];
    if (self != nil) {
        _action = std::move(action);
    }
    return self;
}

- (void)attachTo:(NSControl *)control {
    control.target = self;
    control.action = @selector(perform:);
}

- (void)perform:(id)sender {
    // A copy: the action may destroy the control and this object.
    const auto action = _action;
    action();
}

@end
