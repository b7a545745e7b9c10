#pragma once

#include "presentation/SettingsWindow.h"

#import <AppKit/AppKit.h>

#include <functional>
#include <string>

NS_ASSUME_NONNULL_BEGIN

/// Gives a toolbar its items and reports which one the user chooses.
@interface MacToolbarDelegate : NSObject <NSToolbarDelegate>

- (instancetype)initWithToolbar:(const corvane::Toolbar &)toolbar
                       selected:(std::function<void(const std::string &)>)selected
    NS_DESIGNATED_INITIALIZER;
- (instancetype)init NS_UNAVAILABLE;

- (void)toolbarTabSelected:(NSToolbarItem *)sender;

@end

NS_ASSUME_NONNULL_END
