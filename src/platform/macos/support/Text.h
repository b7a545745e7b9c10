#pragma once

#import <Foundation/Foundation.h>

#include <string>
#include <string_view>

NS_ASSUME_NONNULL_BEGIN

namespace corvane::macos {

/// The text as the system's frameworks take it; bytes that are not UTF-8 give an empty text.
NSString *systemText(std::string_view text);

/// Valid UTF-8, with a replacement where the system's text holds half a character.
std::string utf8(NSString *text);

} // namespace corvane::macos

NS_ASSUME_NONNULL_END
