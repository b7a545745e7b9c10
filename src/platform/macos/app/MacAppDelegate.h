#pragma once

#include "app/CorvaneApp.h"
#include "presentation/Menu.h"

#import <AppKit/AppKit.h>

#include <functional>
#include <memory>
#include <string>

NS_ASSUME_NONNULL_BEGIN

/// The application object's delegate: passes the events of the program's life, the commands of its
/// menus and the URLs of its own scheme on to the portable application. Main thread.
@interface MacAppDelegate : NSObject <NSApplicationDelegate>

/// Receives each command that a menu sends.
@property(nonatomic) std::function<void(const corvane::MenuCommand &)> perform;

/// Receives each URL that another program opens. Those that come before it is set wait for it.
@property(nonatomic) std::function<void(const std::string &url)> openUrl;

/// The delegate of the running application; nil where another one or none is set.
+ (nullable instancetype)current;

/// Owns both until the program terminates. The application uses the platform.
- (instancetype)initWithPlatform:(std::unique_ptr<corvane::platform::Platform>)platform
                     application:(std::unique_ptr<corvane::CorvaneApp>)application
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
