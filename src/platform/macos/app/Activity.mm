#import "platform/macos/app/Activity.h"

namespace corvane::macos {

namespace {

// Threads without a run loop have nobody to empty an autorelease pool for them.
id<NSObject> begin(NSActivityOptions options, NSString *reason) {
    @autoreleasepool {
        return [NSProcessInfo.processInfo beginActivityWithOptions:options reason:reason];
    }
}

} // namespace

Activity::Activity(NSActivityOptions options, NSString *reason) : token_(begin(options, reason)) {}

Activity::~Activity() {
    @autoreleasepool {
        [NSProcessInfo.processInfo endActivity:token_];
    }
}

} // namespace corvane::macos
