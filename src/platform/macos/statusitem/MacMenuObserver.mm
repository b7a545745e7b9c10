#import "platform/macos/statusitem/MacMenuObserver.h"

#include <utility>

@implementation MacMenuObserver {
    std::function<void()> _closed;
}

- (instancetype)initWithClosed:(std::function<void()>)closed {
    self = [super init];
    if (self != nil) {
        _closed = std::move(closed);
    }
    return self;
}

- (void)menuWillOpen:(NSMenu *)menu {
    _isOpen = YES;
}

- (void)menuDidClose:(NSMenu *)menu {
    _isOpen = NO;
    __weak MacMenuObserver *weakSelf = self;
    dispatch_async(dispatch_get_main_queue(), ^{
      MacMenuObserver *observer = weakSelf;
      if (observer != nil && !observer.isOpen) {
          observer->_closed();
      }
    });
}

@end
