#include "platform/x11/hotkey/RawKeys.h"

#include <xcb/xinput.h>

#include <span>

namespace corvane::x11 {

namespace {

/// From the second minor version on, raw events pass every grab.
constexpr std::uint16_t majorVersion = 2;
constexpr std::uint16_t minorVersion = 2;

/// A mask of one word, as the request wants it.
struct EventMask {
    xcb_input_event_mask_t head;
    std::uint32_t mask;
};

} // namespace

RawKeys::RawKeys(const XcbConnection &connection) : connection_(connection) {
    const auto *extension = connection.extension(xcb_input_id);
    if (extension == nullptr) {
        return;
    }
    const auto version = reply<xcb_input_xi_query_version_reply>(
        connection.get(), xcb_input_xi_query_version(connection.get(), majorVersion, minorVersion));
    if (version && version->major_version == majorVersion &&
        version->minor_version >= minorVersion) {
        extension_ = extension->major_opcode;
    }
}

void RawKeys::listen(bool isListening) {
    if (extension_ == 0) {
        return;
    }
    constexpr std::uint32_t keys =
        XCB_INPUT_XI_EVENT_MASK_RAW_KEY_PRESS | XCB_INPUT_XI_EVENT_MASK_RAW_KEY_RELEASE;
    const EventMask mask{.head = {.deviceid = XCB_INPUT_DEVICE_ALL_MASTER, .mask_len = 1},
                         .mask = isListening ? keys : 0};
    xcb_input_xi_select_events(connection_.get(), connection_.root(), 1, &mask.head);
    connection_.flush();
    if (isListening) {
        readKeysDown();
        readModifiers();
    }
}

std::optional<RawKey> RawKeys::follow(const xcb_generic_event_t &event) {
    if (event.response_type != XCB_GE_GENERIC || extension_ == 0) {
        return std::nullopt;
    }
    const auto &raw = reinterpret_cast<const xcb_input_raw_key_press_event_t &>(event);
    const bool isPress = raw.event_type == XCB_INPUT_RAW_KEY_PRESS;
    if (raw.extension != extension_ || raw.detail >= keyCount ||
        (!isPress && raw.event_type != XCB_INPUT_RAW_KEY_RELEASE)) {
        return std::nullopt;
    }
    isDown_[raw.detail] = isPress;
    return RawKey{.isPress = isPress,
                  .key = static_cast<xcb_keycode_t>(raw.detail),
                  .time = raw.time,
                  .modifiers = modifiersDown()};
}

void RawKeys::readKeysDown() {
    const auto keymap =
        reply<xcb_query_keymap_reply>(connection_.get(), xcb_query_keymap(connection_.get()));
    constexpr std::size_t bitsInByte = 8;
    isDown_.reset();
    for (std::size_t key = 0; keymap && key < keyCount; ++key) {
        const std::bitset<bitsInByte> eightKeys = std::span(keymap->keys)[key / bitsInByte];
        isDown_[key] = eightKeys[key % bitsInByte];
    }
}

/// The server names, for each of eight modifiers in the order of their bits, the same number of
/// keys.
void RawKeys::readModifiers() {
    modifiersOfKey_.fill(0);
    const XcbReply<xcb_get_modifier_mapping_reply_t> reply(xcb_get_modifier_mapping_reply(
        connection_.get(), xcb_get_modifier_mapping(connection_.get()), nullptr));
    if (!reply) {
        return;
    }
    const std::span<const xcb_keycode_t> keys(
        xcb_get_modifier_mapping_keycodes(reply.get()),
        static_cast<std::size_t>(xcb_get_modifier_mapping_keycodes_length(reply.get())));
    constexpr xcb_keycode_t none = 0;
    for (std::size_t index = 0; index < keys.size(); ++index) {
        if (keys[index] != none) {
            modifiersOfKey_[keys[index]] |=
                static_cast<std::uint16_t>(1U << (index / reply->keycodes_per_modifier));
        }
    }
}

std::uint16_t RawKeys::modifiersDown() const {
    std::uint16_t modifiers = 0;
    for (std::size_t key = 0; key < keyCount; ++key) {
        if (isDown_[key]) {
            modifiers |= modifiersOfKey_[key];
        }
    }
    return modifiers;
}

} // namespace corvane::x11
