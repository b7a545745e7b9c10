#pragma once

#import <AppKit/AppKit.h>

#include <functional>

NS_ASSUME_NONNULL_BEGIN

/// Reports what is typed into a text field. The field holds it weakly.
@interface MacTextObserver : NSObject <NSTextFieldDelegate>

/// Calls `changed` after every edit and `ended` when the typing ends.
- (instancetype)initWithChanged:(std::function<void()>)changed
                          ended:(std::function<void()>)ended NS_DESIGNATED_INITIALIZER;
- (instancetype)init NS_UNAVAILABLE;

@end

NS_ASSUME_NONNULL_END
