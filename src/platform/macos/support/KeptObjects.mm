#import "platform/macos/support/KeptObjects.h"

namespace corvane::macos {

void keepThroughEvents(NSObject *object) {
    // Menus and alerts turn the run loop in modes of their own.
    [NSRunLoop.mainRunLoop performInModes:@[ NSDefaultRunLoopMode ]
                                    block:^{
                                      @autoreleasepool {
                                          (void)object;
                                      }
                                    }];
}

} // namespace corvane::macos
