#import "platform/macos/settings/MacTextObserver.h"

#include <utility>

@implementation MacTextObserver {
    std::function<void()> _changed;
    std::function<void()> _ended;
}

- (instancetype)initWithChanged:(std::function<void()>)changed ended:(std::function<void()>)ended {
    self = [super init];
    if (self != nil) {
        _changed = std::move(changed);
        _ended = std::move(ended);
    }
    return self;
}

- (void)controlTextDidChange:(NSNotification *)notification {
    // Copies: the receiver may destroy the field and this object.
    const auto changed = _changed;
    changed();
}

- (void)controlTextDidEndEditing:(NSNotification *)notification {
    const auto ended = _ended;
    ended();
}

@end
