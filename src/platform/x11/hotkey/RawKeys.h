#pragma once

#include "platform/x11/connection/XcbConnection.h"

#include <array>
#include <bitset>
#include <cstdint>
#include <optional>

namespace corvane::x11 {

/// A key going down or up as the keyboard reports it.
struct RawKey {
    bool isPress = false;
    xcb_keycode_t key = 0;
    xcb_timestamp_t time = XCB_CURRENT_TIME;
    /// Those whose keys are down; locks are not among them.
    std::uint16_t modifiers = 0;
};

/// Raw key events, which the server reports even while another program has grabbed the keyboard.
/// Without the input extension there are none.
class RawKeys {
  public:
    /// The connection outlives it.
    explicit RawKeys(const XcbConnection &connection);

    /// Has the server report every key from now on, or none any more.
    void listen(bool isListening);

    /// Nothing for any other event. To be called with every event in order, once or more often.
    std::optional<RawKey> follow(const xcb_generic_event_t &event);

  private:
    static constexpr std::size_t keyCount = 256;

    void readKeysDown();
    void readModifiers();
    std::uint16_t modifiersDown() const;

    const XcbConnection &connection_;
    /// What the server calls the extension; 0 where it lacks it.
    std::uint8_t extension_ = 0;
    std::bitset<keyCount> isDown_;
    std::array<std::uint16_t, keyCount> modifiersOfKey_{};
};

} // namespace corvane::x11
