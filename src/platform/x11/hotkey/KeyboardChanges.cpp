#include "platform/x11/hotkey/KeyboardChanges.h"

#include "platform/x11/connection/Xcb.h"

#include <xkbcommon/xkbcommon-x11.h>

namespace corvane::x11 {

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
