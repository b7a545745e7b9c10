#pragma once

#import <Foundation/Foundation.h>

#include <functional>

#if !__has_feature(objc_arc)
#error "Compile this file with -fobjc-arc"
#endif

@class MacSessionObserver;

NS_ASSUME_NONNULL_BEGIN

namespace corvane::macos {

/// Whether the user is at the screen, by the notifications of the workspace and of the login
/// window. Main thread.
class MacUserSession {
  public:
    /// Calls `changed` when the user leaves or is back: the screen is locked or its saver comes on,
    /// the system is about to sleep, another user takes the screen over.
    explicit MacUserSession(std::function<void(bool isAway)> changed);
    ~MacUserSession();
    MacUserSession(const MacUserSession &) = delete;
    MacUserSession &operator=(const MacUserSession &) = delete;

  private:
    void note(NSNotificationName notification);
    void note(NSNotificationName notification, NSNotificationName begin, NSNotificationName end);

    const std::function<void(bool isAway)> changed_;
    /// The beginnings of all absences that have not ended.
    NSMutableSet<NSNotificationName> *reasons_ = [NSMutableSet set];
    MacSessionObserver *observer_;
};

} // namespace corvane::macos

NS_ASSUME_NONNULL_END
