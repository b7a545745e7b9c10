#import "platform/macos/statusitem/MacMenuObserver.h"

#include <utility>

@implementation MacMenuObserver {
    std::function<void()> _opened;
    std::function<void()> _closed;
    BOOL _isOpen;
}

- (instancetype)initWithOpened:(std::function<void()>)opened closed:(std::function<void()>)closed {
    self = [super init];
    if (self != nil) {
        _opened = std::move(opened);
        _closed = std::move(closed);
    }
    return self;
}

- (void)menuWillOpen:(NSMenu *)menu {
    _isOpen = YES;
    _opened();
}

- (void)menuDidClose:(NSMenu *)menu {
    _isOpen = NO;
    __weak MacMenuObserver *weakSelf = self;
    dispatch_async(dispatch_get_main_queue(), ^{
      @autoreleasepool {
          MacMenuObserver *observer = weakSelf;
          if (observer != nil && !observer->_isOpen) {
              observer->_closed();
          }
      }
    });
}

@end
