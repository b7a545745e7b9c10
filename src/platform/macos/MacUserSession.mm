#import "platform/macos/MacUserSession.h"

#import <AppKit/AppKit.h>

#include <utility>

#if !__has_feature(objc_arc)
#error "Compile this file with -fobjc-arc"
#endif

namespace corvane::macos {

MacUserSession::MacUserSession(std::function<void(bool isAway)> changed)
    : changed_(std::move(changed)),
      observers_([NSMutableArray array]) {
    NSNotificationCenter *workspace = NSWorkspace.sharedWorkspace.notificationCenter;
    observe(workspace, NSWorkspaceWillSleepNotification, "sleep", true);
    observe(workspace, NSWorkspaceDidWakeNotification, "sleep", false);
    observe(workspace, NSWorkspaceSessionDidResignActiveNotification, "another user", true);
    observe(workspace, NSWorkspaceSessionDidBecomeActiveNotification, "another user", false);
    NSNotificationCenter *everybody = NSDistributedNotificationCenter.defaultCenter;
    observe(everybody, @"com.apple.screenIsLocked", "lock", true);
    observe(everybody, @"com.apple.screenIsUnlocked", "lock", false);
    observe(everybody, @"com.apple.screensaver.didstart", "screen saver", true);
    observe(everybody, @"com.apple.screensaver.didstop", "screen saver", false);
}

MacUserSession::~MacUserSession() {
    for (id<NSObject> observer in observers_) {
        [NSWorkspace.sharedWorkspace.notificationCenter removeObserver:observer];
        [NSDistributedNotificationCenter.defaultCenter removeObserver:observer];
    }
}

void MacUserSession::observe(NSNotificationCenter *centre, NSString *name,
                             const std::string &reason, bool isReasonToBeAway) {
    // The observers are removed before this is gone.
    [observers_ addObject:[centre addObserverForName:name
                                              object:nil
                                               queue:NSOperationQueue.mainQueue
                                          usingBlock:^(NSNotification *) {
                                            note(reason, isReasonToBeAway);
                                          }]];
}

void MacUserSession::note(const std::string &reason, bool isReasonToBeAway) {
    const bool wasAway = !reasons_.empty();
    if (isReasonToBeAway) {
        reasons_.insert(reason);
    } else {
        reasons_.erase(reason);
    }
    const bool isAway = !reasons_.empty();
    if (isAway != wasAway) {
        changed_(isAway);
    }
}

} // namespace corvane::macos
