// What this program uses of the system's ServiceManagement framework, for cross builds against a
// folder of headers that lacks it. A build on a Mac takes the system's own.
#pragma once

#import <Foundation/Foundation.h>

NS_ASSUME_NONNULL_BEGIN

typedef NS_ENUM(NSInteger, SMAppServiceStatus) {
    SMAppServiceStatusNotRegistered,
    SMAppServiceStatusEnabled,
    SMAppServiceStatusRequiresApproval,
    SMAppServiceStatusNotFound,
} API_AVAILABLE(macos(13.0));

API_AVAILABLE(macos(13.0))
@interface SMAppService : NSObject

@property(class, readonly) SMAppService *mainAppService;
@property(readonly) SMAppServiceStatus status;

- (BOOL)registerAndReturnError:(NSError **)error;
- (BOOL)unregisterAndReturnError:(NSError **)error;

@end

NS_ASSUME_NONNULL_END
