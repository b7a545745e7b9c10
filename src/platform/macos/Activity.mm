#import "platform/macos/Activity.h"

#if !__has_feature(objc_arc)
#error "Compile this file with -fobjc-arc"
#endif

namespace corvane::macos {

// Threads without a run loop have nobody to empty an autorelease pool for them.

Activity::Activity(NSActivityOptions options, NSString *reason) {
    @autoreleasepool {
        token_ = [NSProcessInfo.processInfo beginActivityWithOptions:options reason:reason];
    }
}

Activity::~Activity() {
    @autoreleasepool {
        [NSProcessInfo.processInfo endActivity:token_];
    }
}

} // namespace corvane::macos
