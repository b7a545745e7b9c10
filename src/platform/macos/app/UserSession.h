#pragma once

#include "platform/UserSession.h"

#import <Foundation/Foundation.h>

@class MacSessionObserver;

NS_ASSUME_NONNULL_BEGIN

namespace corvane::macos {

/// The session's state by the notifications of the workspace (fast user switching) and of the login
/// window (lock). Main thread.
class UserSession : public platform::UserSession {
  public:
    UserSession();
    ~UserSession() override;
    UserSession(const UserSession &) = delete;
    UserSession &operator=(const UserSession &) = delete;

    platform::SessionState state() const override;
    void whenChanged(std::function<void()> changed) override { changed_ = std::move(changed); }

  private:
    void received(NSNotificationName notification);

    std::function<void()> changed_;
    bool isLocked_ = false;
    bool isOtherUserActive_ = false;
    MacSessionObserver *observer_;
};

} // namespace corvane::macos

NS_ASSUME_NONNULL_END
