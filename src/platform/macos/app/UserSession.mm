#import "platform/macos/app/UserSession.h"

#import "platform/macos/app/MacSessionObserver.h"
#import "platform/macos/support/Text.h"

#import <AppKit/AppKit.h>

#include <array>
#include <string_view>
#include <utility>

namespace corvane::macos {

namespace {

/// Two notifications, of which the second takes back what the first says.
struct Absence {
    NSNotificationName begin;
    NSNotificationName end;
};

constexpr std::string_view unlocked = "com.apple.screenIsUnlocked";

std::array<Absence, 2> toldByWorkspace() {
    return {{{NSWorkspaceWillSleepNotification, NSWorkspaceDidWakeNotification},
             {NSWorkspaceSessionDidResignActiveNotification,
              NSWorkspaceSessionDidBecomeActiveNotification}}};
}

std::array<Absence, 2> toldToEverybody() {
    return {{{@"com.apple.screenIsLocked", systemText(unlocked)},
             {@"com.apple.screensaver.didstart", @"com.apple.screensaver.didstop"}}};
}

} // namespace

UserSession::UserSession(std::function<void(bool isAway)> changed)
    : changed_(std::move(changed)),
      observer_([[MacSessionObserver alloc]
          initWithReceiver:[this](NSNotificationName name) { note(name); }]) {
    for (const Absence &absence : toldByWorkspace()) {
        [observer_ observeWorkspace:absence.begin];
        [observer_ observeWorkspace:absence.end];
    }
    for (const Absence &absence : toldToEverybody()) {
        [observer_ observeEverybody:absence.begin];
        [observer_ observeEverybody:absence.end];
    }
}

UserSession::~UserSession() { [observer_ end]; }

void UserSession::note(NSNotificationName notification) {
    const bool wasAway = reasons_.count > 0;
    for (const Absence &absence : toldByWorkspace()) {
        note(notification, absence.begin, absence.end);
    }
    for (const Absence &absence : toldToEverybody()) {
        note(notification, absence.begin, absence.end);
    }
    if (utf8(notification) == unlocked) {
        // Whoever unlocks the screen is there, even where another notification went astray.
        [reasons_ removeAllObjects];
    }
    const bool isAway = reasons_.count > 0;
    if (isAway != wasAway) {
        changed_(isAway);
    }
}

void UserSession::note(NSNotificationName notification, NSNotificationName begin,
                       NSNotificationName end) {
    if ([notification isEqualToString:begin]) {
        [reasons_ addObject:begin];
    } else if ([notification isEqualToString:end]) {
        [reasons_ removeObject:begin];
    }
}

} // namespace corvane::macos
