#import "platform/macos/app/KeyboardFocus.h"

#import <AppKit/AppKit.h>

#include <cstddef>

namespace corvane::macos {

namespace {

/// In an iteration of the run loop that belongs to no alert or menu: what follows at once, such as
/// the question behind a picked zone, has taken the keyboard by then.
void giveBackUnlessUsed(const std::shared_ptr<int> &users) {
    [NSRunLoop.mainRunLoop performInModes:@[ NSDefaultRunLoopMode ]
                                    block:^{
                                      @autoreleasepool {
                                          if (*users == 0 && NSApp.active) {
                                              [NSApp hide:nil];
                                          }
                                      }
                                    }];
}

} // namespace

std::shared_ptr<void> KeyboardFocus::take() {
    [NSApp unhideWithoutActivation];
    [NSApp activateIgnoringOtherApps:YES];
    ++*users_;
    return {nullptr, [users = users_](std::nullptr_t) {
                if (--*users == 0) {
                    giveBackUnlessUsed(users);
                }
            }};
}

} // namespace corvane::macos
