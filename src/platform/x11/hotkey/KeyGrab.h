#pragma once

#include "platform/x11/connection/XcbConnection.h"

#include <cstdint>
#include <expected>
#include <memory>
#include <vector>

namespace corvane::x11 {

/// A key combination as the X server knows it.
struct KeyCombination {
    xcb_keycode_t key = 0;
    std::uint16_t modifiers = 0;
    /// Modifiers that may be on or off: Caps Lock, Num Lock, Scroll Lock.
    std::uint16_t ignoredModifiers = 0;

    bool operator==(const KeyCombination &) const = default;

    /// Whether exactly its modifiers are in force.
    bool isWith(std::uint16_t modifiersInForce) const {
        return (modifiersInForce & ~ignoredModifiers) == modifiers;
    }
};

/// Has a combination delivered to this client, whichever window has the keyboard, until destroyed.
class KeyGrab {
  public:
    /// The X error code where another client has the combination. The connection outlives the grab.
    static std::expected<std::unique_ptr<KeyGrab>, std::uint8_t>
    grab(const XcbConnection &connection, const KeyCombination &combination);

    ~KeyGrab();

    KeyGrab(const KeyGrab &) = delete;
    KeyGrab &operator=(const KeyGrab &) = delete;

    const KeyCombination &combination() const { return combination_; }

  private:
    KeyGrab(const XcbConnection &connection, const KeyCombination &combination);

    std::uint8_t grabAll();

    const XcbConnection &connection_;
    const KeyCombination combination_;
    /// Every state of the modifiers for which the server gave us the key.
    std::vector<std::uint16_t> granted_;
};

} // namespace corvane::x11
