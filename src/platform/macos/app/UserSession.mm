#import "platform/macos/app/UserSession.h"

#import "platform/macos/app/MacSessionObserver.h"

#import <AppKit/AppKit.h>

namespace corvane::macos {

namespace {

NSNotificationName const screenIsLocked = @"com.apple.screenIsLocked";
NSNotificationName const screenIsUnlocked = @"com.apple.screenIsUnlocked";

} // namespace

UserSession::UserSession()
    : observer_([[MacSessionObserver alloc]
          initWithReceiver:[this](NSNotificationName name) { received(name); }]) {
    [observer_ observeWorkspace:NSWorkspaceSessionDidResignActiveNotification];
    [observer_ observeWorkspace:NSWorkspaceSessionDidBecomeActiveNotification];
    [observer_ observeEverybody:screenIsLocked];
    [observer_ observeEverybody:screenIsUnlocked];
}

UserSession::~UserSession() { [observer_ end]; }

platform::SessionState UserSession::state() const {
    if (isOtherUserActive_) {
        return platform::SessionState::otherUser;
    }
    return isLocked_ ? platform::SessionState::locked : platform::SessionState::active;
}

void UserSession::received(NSNotificationName notification) {
    const platform::SessionState before = state();
    if ([notification isEqualToString:screenIsLocked]) {
        isLocked_ = true;
    } else if ([notification isEqualToString:screenIsUnlocked]) {
        // Only the user whose session has the screen can unlock it, so a missed notification of the
        // workspace is made up for here.
        isLocked_ = false;
        isOtherUserActive_ = false;
    } else {
        isOtherUserActive_ =
            [notification isEqualToString:NSWorkspaceSessionDidResignActiveNotification];
    }
    if (state() != before && changed_) {
        changed_();
    }
}

} // namespace corvane::macos
