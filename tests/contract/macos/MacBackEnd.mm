#import "MacBackEnd.h"

#import "RecorderBackEnd.h"

#import <CoreFoundation/CoreFoundation.h>
#import <Foundation/Foundation.h>

#include <chrono>

namespace corvane::contract {

bool MacBackEnd::turnUntil(const std::function<bool()> &condition) {
    constexpr std::chrono::seconds patience{20};
    constexpr CFTimeInterval pause = 0.005;
    const auto start = platform_.clock().now();
    while (!condition()) {
        if (platform_.clock().now() - start > patience) {
            return false;
        }
        @autoreleasepool {
            CFRunLoopRunInMode(kCFRunLoopDefaultMode, pause, true);
        }
    }
    return true;
}

void MacBackEnd::announceLock(bool isLocked) {
    [NSDistributedNotificationCenter.defaultCenter
        postNotificationName:isLocked ? @"com.apple.screenIsLocked" : @"com.apple.screenIsUnlocked"
                      object:nil
                    userInfo:nil
          deliverImmediately:YES];
}

std::vector<BackEndKind> backEndKinds() {
    return {{.name = "Recorder", .make = RecorderBackEnd::make},
            {.name = "Mac", .make = MacBackEnd::make}};
}

} // namespace corvane::contract
