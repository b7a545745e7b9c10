#import "platform/macos/windows/WindowList.h"

#include "platform/macos/logic/WindowNames.h"
#import "platform/macos/support/CFReference.h"
#import "platform/macos/support/Text.h"

#import <AppKit/AppKit.h>

#include <limits>

#include <unistd.h>

namespace corvane::macos {

namespace {

/// Nothing when the entry is missing or of another kind.
id entryOf(NSDictionary *dictionary, CFStringRef key, Class kind) {
    NSObject *object = dictionary[(__bridge NSString *)key];
    return [object isKindOfClass:kind] ? object : nil;
}

NSNumber *number(NSDictionary *dictionary, CFStringRef key) {
    return entryOf(dictionary, key, NSNumber.class);
}

std::optional<std::int64_t> integer(NSNumber *value) {
    if (value == nil || CFNumberIsFloatType((__bridge CFNumberRef)value)) {
        return std::nullopt;
    }
    return value.longLongValue;
}

std::optional<std::int32_t> processIdentifier(NSNumber *owner) {
    const auto value = integer(owner);
    if (!value || *value < std::numeric_limits<std::int32_t>::min() ||
        *value > std::numeric_limits<std::int32_t>::max()) {
        return std::nullopt;
    }
    return static_cast<std::int32_t>(*value);
}

std::optional<Rectangle> bounds(NSDictionary *dictionary) {
    NSNumber *x = number(dictionary, CFSTR("X"));
    NSNumber *y = number(dictionary, CFSTR("Y"));
    NSNumber *width = number(dictionary, CFSTR("Width"));
    NSNumber *height = number(dictionary, CFSTR("Height"));
    if (x == nil || y == nil || width == nil || height == nil) {
        return std::nullopt;
    }
    return Rectangle{x.doubleValue, y.doubleValue, width.doubleValue, height.doubleValue};
}

std::optional<std::string> portableText(NSString *text) {
    return text == nil ? std::nullopt : std::optional(utf8(text));
}

platform::WindowListEntry entry(NSDictionary *window) {
    return {.bounds = bounds(entryOf(window, kCGWindowBounds, NSDictionary.class)),
            .ownerProcessIdentifier = processIdentifier(number(window, kCGWindowOwnerPID)),
            .name = portableText(entryOf(window, kCGWindowName, NSString.class)),
            .layer = integer(number(window, kCGWindowLayer))};
}

} // namespace

std::optional<std::vector<platform::WindowListEntry>> WindowList::onScreenWindows() {
    const CFReference list(CGWindowListCopyWindowInfo(
        kCGWindowListOptionOnScreenOnly | kCGWindowListExcludeDesktopElements, kCGNullWindowID));
    if (!list) {
        return std::nullopt;
    }
    std::vector<platform::WindowListEntry> entries;
    for (NSObject *window in (__bridge NSArray *)list.get()) {
        if (![window isKindOfClass:NSDictionary.class]) {
            return std::nullopt;
        }
        entries.push_back(entry(static_cast<NSDictionary *>(window)));
    }
    addMissingNames(entries, accessibility_, getpid());
    return entries;
}

} // namespace corvane::macos
