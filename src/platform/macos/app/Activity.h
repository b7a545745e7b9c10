#pragma once

#import <Foundation/Foundation.h>

#if !__has_feature(objc_arc)
#error "Compile this file with -fobjc-arc"
#endif

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
