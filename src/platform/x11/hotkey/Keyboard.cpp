#include "platform/x11/hotkey/Keyboard.h"

#include "platform/x11/connection/Xcb.h"

#include <algorithm>
#include <ranges>
#include <span>
#include <xkbcommon/xkbcommon-x11.h>

namespace corvane::x11 {

KeyboardLayout::KeyboardLayout(const XcbConnection &connection)
    : context_(xkb_context_new(XKB_CONTEXT_NO_DEFAULT_INCLUDES)) {
    const auto modifierMapping = xcb_get_modifier_mapping(connection.get());
    const std::int32_t device = xkb_x11_get_core_keyboard_device_id(connection.get());
    if (context_ && device >= 0) {
        keymap_.reset(xkb_x11_keymap_new_from_device(context_.get(), connection.get(), device,
                                                     XKB_KEYMAP_COMPILE_NO_FLAGS));
    }
    if (keymap_) {
        state_.reset(xkb_x11_state_new_from_device(keymap_.get(), connection.get(), device));
    }
    modifiers_.reset(xcb_get_modifier_mapping_reply(connection.get(), modifierMapping, nullptr));
}

std::optional<xcb_keycode_t>
KeyboardLayout::keyFor(std::initializer_list<xkb_keysym_t> symbols) const {
    if (!state_) {
        return std::nullopt;
    }
    const xkb_keycode_t first = xkb_keymap_min_keycode(keymap_.get());
    const xkb_keycode_t last = xkb_keymap_max_keycode(keymap_.get());
    for (const xkb_keycode_t key : std::views::iota(first, last + 1)) {
        const xkb_layout_index_t layout = xkb_state_key_get_layout(state_.get(), key);
        const xkb_keysym_t *given = nullptr;
        const int count = xkb_keymap_key_get_syms_by_level(keymap_.get(), key, layout, 0, &given);
        if (count == 1 && std::ranges::count(symbols, *given) > 0) {
            return static_cast<xcb_keycode_t>(key);
        }
    }
    return std::nullopt;
}

bool KeyboardLayout::hasKey(xcb_keycode_t key) const {
    return !keymap_ || (key >= xkb_keymap_min_keycode(keymap_.get()) &&
                        key <= xkb_keymap_max_keycode(keymap_.get()));
}

std::uint16_t KeyboardLayout::modifiersFor(std::initializer_list<xkb_keysym_t> symbols) const {
    if (!keymap_ || !modifiers_) {
        return 0;
    }
    const std::span<const xcb_keycode_t> keys(
        xcb_get_modifier_mapping_keycodes(modifiers_.get()),
        static_cast<std::size_t>(xcb_get_modifier_mapping_keycodes_length(modifiers_.get())));
    // Eight modifiers in the order of their bits, each with the same number of keys.
    std::uint16_t bits = 0;
    for (const std::size_t index : std::views::iota(std::size_t{0}, keys.size())) {
        if (gives(keys[index], symbols)) {
            bits |= static_cast<std::uint16_t>(1U << (index / modifiers_->keycodes_per_modifier));
        }
    }
    return bits;
}

bool KeyboardLayout::gives(xcb_keycode_t key, std::initializer_list<xkb_keysym_t> symbols) const {
    const xkb_keysym_t *given = nullptr;
    const int count = xkb_keymap_key_get_syms_by_level(keymap_.get(), key, 0, 0, &given);
    return count == 1 && std::ranges::count(symbols, *given) > 0;
}

KeyboardChanges::KeyboardChanges(const XcbConnection &connection) {
    const int isPresent = xkb_x11_setup_xkb_extension(
        connection.get(), XKB_X11_MIN_MAJOR_XKB_VERSION, XKB_X11_MIN_MINOR_XKB_VERSION,
        XKB_X11_SETUP_XKB_EXTENSION_NO_FLAGS, nullptr, nullptr, &extensionEvent_, nullptr);
    if (isPresent == 0) {
        return;
    }
    select(connection);
    xcb_discard_reply(connection.get(), xcb_xkb_per_client_flags(
                                            connection.get(), XCB_XKB_ID_USE_CORE_KBD,
                                            XCB_XKB_PER_CLIENT_FLAG_DETECTABLE_AUTO_REPEAT,
                                            XCB_XKB_PER_CLIENT_FLAG_DETECTABLE_AUTO_REPEAT, 0, 0, 0)
                                            .sequence);
}

bool KeyboardChanges::isChange(const xcb_generic_event_t &event) const {
    return event.response_type == XCB_MAPPING_NOTIFY ||
           (extensionEvent_ != 0 && event.response_type == extensionEvent_);
}

void KeyboardChanges::select(const XcbConnection &connection) {
    constexpr std::uint16_t events = XCB_XKB_EVENT_TYPE_NEW_KEYBOARD_NOTIFY |
                                     XCB_XKB_EVENT_TYPE_MAP_NOTIFY |
                                     XCB_XKB_EVENT_TYPE_STATE_NOTIFY;
    constexpr std::uint16_t keyboards = XCB_XKB_NKN_DETAIL_KEYCODES | XCB_XKB_NKN_DETAIL_DEVICE_ID;
    constexpr std::uint16_t layout = XCB_XKB_STATE_PART_GROUP_STATE;
    constexpr std::uint16_t maps =
        XCB_XKB_MAP_PART_KEY_TYPES | XCB_XKB_MAP_PART_KEY_SYMS | XCB_XKB_MAP_PART_MODIFIER_MAP;
    const xcb_xkb_select_events_details_t details{.affectNewKeyboard = keyboards,
                                                  .newKeyboardDetails = keyboards,
                                                  .affectState = layout,
                                                  .stateDetails = layout};
    xcb_xkb_select_events_aux(connection.get(), XCB_XKB_ID_USE_CORE_KBD, events, 0, 0, maps, maps,
                              &details);
}

} // namespace corvane::x11
