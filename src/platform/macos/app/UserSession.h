#pragma once

#import <Foundation/Foundation.h>

#include <functional>

@class MacSessionObserver;

NS_ASSUME_NONNULL_BEGIN

namespace corvane::macos {

/// Whether the user is at the screen, by the notifications of the workspace and of the login
/// window. Main thread.
class UserSession {
  public:
    /// Calls `changed` when the user leaves or is back: the screen is locked or its saver comes on,
    /// the system is about to sleep, another user takes the screen over.
    explicit UserSession(std::function<void(bool isAway)> changed);
    ~UserSession();
    UserSession(const UserSession &) = delete;
    UserSession &operator=(const UserSession &) = delete;

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
