#pragma once

#include "app/CorvaneApp.h"
#include "presentation/Menu.h"

#import <AppKit/AppKit.h>

#include <functional>
#include <memory>

#if !__has_feature(objc_arc)
#error "Compile this file with -fobjc-arc"
#endif

NS_ASSUME_NONNULL_BEGIN

/// The application object's delegate: passes the events of the program's life and the commands of
/// its menus on to the portable application.
@interface MacAppDelegate : NSObject <NSApplicationDelegate>

/// Receives each command that a menu sends.
@property(nonatomic) std::function<void(const corvane::MenuCommand &)> perform;

/// The application is told of the launch, and destroyed when the program terminates.
- (instancetype)initWithApplication:(std::unique_ptr<corvane::CorvaneApp>)application
    NS_DESIGNATED_INITIALIZER;
- (instancetype)init NS_UNAVAILABLE;

- (void)startClicking:(nullable id)sender;
- (void)stopClicking:(nullable id)sender;
- (void)setModeCursor:(nullable id)sender;
- (void)setModeZone:(nullable id)sender;
- (void)selectZone:(nullable id)sender;
- (void)loadProfile:(nullable id)sender;
- (void)saveAsProfile:(nullable id)sender;
- (void)showConfig:(nullable id)sender;
- (void)openAccessibilitySettings:(nullable id)sender;

@end

NS_ASSUME_NONNULL_END
