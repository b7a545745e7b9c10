#import "MacBackEnd.h"

#import "RecorderBackEnd.h"

#import <AppKit/AppKit.h>
#import <CoreFoundation/CoreFoundation.h>
#import <Foundation/Foundation.h>

#include <chrono>
#include <utility>

namespace corvane::contract {

bool MacBackEnd::turnUntil(const std::function<bool()> &condition) {
    constexpr std::chrono::seconds timeLimit{20};
    constexpr CFTimeInterval pause = 0.005;
    const auto start = platform_.clock().now();
    while (!condition()) {
        if (platform_.clock().now() - start > timeLimit) {
            return false;
        }
        @autoreleasepool {
            for (const auto &event : std::exchange(events_, {})) {
                event();
            }
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

void MacBackEnd::click(Point point) {
    for (NSWindow *window in NSApplication.sharedApplication.windows) {
        const NSPoint position = NSMakePoint(point.x, point.y);
        if (!window.visible || window.ignoresMouseEvents ||
            !NSPointInRect(position, window.frame)) {
            continue;
        }
        for (const NSEventType type : {NSEventTypeLeftMouseDown, NSEventTypeLeftMouseUp}) {
            NSEvent *event = [NSEvent mouseEventWithType:type
                                                location:[window convertPointFromScreen:position]
                                           modifierFlags:0
                                               timestamp:NSProcessInfo.processInfo.systemUptime
                                            windowNumber:window.windowNumber
                                                 context:nil
                                             eventNumber:0
                                              clickCount:1
                                                pressure:1];
            events_.emplace_back([window, event] { [window sendEvent:event]; });
        }
    }
}

std::vector<BackEndKind> backEndKinds() {
    return {{.name = "Recorder", .make = RecorderBackEnd::make},
            {.name = "Mac", .make = MacBackEnd::make}};
}

std::vector<BackEndKind> windowSystemKinds() { return backEndKinds(); }

} // namespace corvane::contract
