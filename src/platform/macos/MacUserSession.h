#pragma once

#import <Foundation/Foundation.h>

#include <functional>
#include <set>
#include <string>

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
    void observe(NSNotificationCenter *centre, NSString *name, const std::string &reason,
                 bool isReasonToBeAway);
    void note(const std::string &reason, bool isReasonToBeAway);

    const std::function<void(bool isAway)> changed_;
    std::set<std::string> reasons_;
    NSMutableArray<id<NSObject>> *observers_;
};

} // namespace corvane::macos
