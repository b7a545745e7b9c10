#pragma once

#import <AppKit/AppKit.h>

NS_ASSUME_NONNULL_BEGIN

namespace corvane::macos {

/// A main menu that nobody sees, because the program shows no menu bar: it gives the fields and
/// windows of the program the keys for undoing, copying, pasting, closing and quitting.
NSMenu *makeEditingKeys();

} // namespace corvane::macos

NS_ASSUME_NONNULL_END
