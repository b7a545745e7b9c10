#pragma once

#import <Foundation/Foundation.h>

#include <functional>
#include <string>

#if !__has_feature(objc_arc)
#error "Compile this file with -fobjc-arc"
#endif

NS_ASSUME_NONNULL_BEGIN

/// Receives the URLs of the program's own scheme that other programs open. Main thread.
@interface MacUrlEvents : NSObject

/// Passes every URL on, those first that have come by now.
- (void)listen:(std::function<void(const std::string &url)>)receiver;

/// No further URLs are taken.
- (void)end;

@end

NS_ASSUME_NONNULL_END
