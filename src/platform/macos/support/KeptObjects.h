#pragma once

#import <Foundation/Foundation.h>

NS_ASSUME_NONNULL_BEGIN

namespace corvane::macos {

/// Keeps a window or a control, which may be in the midst of an event of its own, until no event is
/// under way any more: not even one whose menu or alert turns the run loop in the meantime. Main
/// thread.
void keepThroughEvents(NSObject *object);

} // namespace corvane::macos

NS_ASSUME_NONNULL_END
