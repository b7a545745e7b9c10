#pragma once

#include "presentation/Menu.h"

#import <AppKit/AppKit.h>

NS_ASSUME_NONNULL_BEGIN

namespace corvane::macos {

/// A new menu with the same items. Whether an item with a live target can be chosen is left to the
/// system's automatic enabling.
NSMenu *makeMenu(const std::vector<MenuItem> &items);

/// Changes in place what differs between `shown`, which `menu` was made from, and `newest`, which
/// has the same shape.
void updateMenu(NSMenu *menu, const std::vector<MenuItem> &shown,
                const std::vector<MenuItem> &newest);

} // namespace corvane::macos

NS_ASSUME_NONNULL_END
