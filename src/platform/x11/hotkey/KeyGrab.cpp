#include "platform/x11/hotkey/KeyGrab.h"

#include <utility>

namespace corvane::x11 {

namespace {

/// Every combination of the bits of `mask`, none and all included.
std::vector<std::uint16_t> subsetsOf(std::uint16_t mask) {
    std::vector<std::uint16_t> subsets;
    std::uint32_t subset = 0;
    do {
        subsets.push_back(static_cast<std::uint16_t>(subset));
        subset = (subset - mask) & mask;
    } while (subset != 0);
    return subsets;
}

} // namespace

std::expected<std::unique_ptr<KeyGrab>, std::uint8_t>
KeyGrab::grab(const XcbConnection &connection, const KeyCombination &combination) {
    std::unique_ptr<KeyGrab> grab(new KeyGrab(connection, combination)); // NOLINT
    if (const std::uint8_t error = grab->grabAll(); error != 0) {
        return std::unexpected(error);
    }
    return grab;
}

KeyGrab::KeyGrab(const XcbConnection &connection, const KeyCombination &combination)
    : connection_(connection),
      combination_(combination) {}

KeyGrab::~KeyGrab() {
    for (const std::uint16_t modifiers : granted_) {
        xcb_ungrab_key(connection_.get(), combination_.key, connection_.root(), modifiers);
    }
    connection_.flush();
}

/// The code of the first error; 0 for none. All requests go out before the first answer is awaited.
std::uint8_t KeyGrab::grabAll() {
    std::vector<std::pair<std::uint16_t, xcb_void_cookie_t>> requests;
    for (const std::uint16_t ignored : subsetsOf(combination_.ignoredModifiers)) {
        const auto modifiers = static_cast<std::uint16_t>(combination_.modifiers | ignored);
        requests.emplace_back(modifiers,
                              xcb_grab_key_checked(connection_.get(), 0, connection_.root(),
                                                   modifiers, combination_.key, XCB_GRAB_MODE_ASYNC,
                                                   XCB_GRAB_MODE_ASYNC));
    }
    std::uint8_t firstError = 0;
    for (const auto &[modifiers, request] : requests) {
        if (const auto error = connection_.check(request)) {
            firstError = firstError != 0 ? firstError : error->error_code;
        } else {
            granted_.push_back(modifiers);
        }
    }
    return firstError;
}

} // namespace corvane::x11
