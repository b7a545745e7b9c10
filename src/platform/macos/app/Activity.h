#pragma once

#import <Foundation/Foundation.h>

NS_ASSUME_NONNULL_BEGIN

namespace corvane::macos {

/// While it exists, the system does not let this program nap, although it is seldom the active one:
/// its timers keep their time. Any thread.
class Activity {
  public:
    Activity(NSActivityOptions options, NSString *reason);
    Activity(const Activity &) = delete;
    Activity &operator=(const Activity &) = delete;
    ~Activity();

  private:
    id<NSObject> token_;
};

} // namespace corvane::macos

NS_ASSUME_NONNULL_END
