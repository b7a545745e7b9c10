#include "XClient.h"

#include "platform/x11/connection/Xcb.h"

#include <QByteArray>
#include <gtest/gtest.h>

#include <array>
#include <ranges>

#include <poll.h>

namespace corvane::contract {

namespace {

constexpr int patienceMilliseconds = 20000;

} // namespace

XClient::XClient() : connection_(qgetenv("DISPLAY").toStdString()) {
    const x11::XcbReply<xcb_xkb_use_extension_reply_t> reply(xcb_xkb_use_extension_reply(
        connection_.get(), xcb_xkb_use_extension(connection_.get(), 1, 0), nullptr));
    EXPECT_TRUE(reply && reply->supported != 0);
}

void XClient::coverScreen() {
    const xcb_screen_t &screen = connection_.screen();
    const xcb_window_t window = xcb_generate_id(connection_.get());
    const std::array<std::uint32_t, 2> values{1, XCB_EVENT_MASK_BUTTON_PRESS |
                                                     XCB_EVENT_MASK_BUTTON_RELEASE};
    xcb_create_window(connection_.get(), XCB_COPY_FROM_PARENT, window, connection_.root(), 0, 0,
                      screen.width_in_pixels, screen.height_in_pixels, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT,
                      XCB_CW_OVERRIDE_REDIRECT | XCB_CW_EVENT_MASK, values.data());
    xcb_map_window(connection_.get(), window);
    connection_.synchronize();
}

x11::XcbReply<xcb_generic_event_t> XClient::nextEvent() {
    x11::XcbReply<xcb_generic_event_t> event(xcb_poll_for_event(connection_.get()));
    pollfd readable{
        .fd = xcb_get_file_descriptor(connection_.get()), .events = POLLIN, .revents = 0};
    while (!event && poll(&readable, 1, patienceMilliseconds) > 0) {
        event.reset(xcb_poll_for_event(connection_.get()));
    }
    return event;
}

void XClient::strike(const std::vector<xcb_keycode_t> &keys) {
    for (const xcb_keycode_t key : keys) {
        keyboard_.press(key);
    }
    for (const xcb_keycode_t key : keys | std::views::reverse) {
        keyboard_.release(key);
    }
}

void XClient::lockLayout(std::uint8_t index) {
    xcb_xkb_latch_lock_state(connection_.get(), XCB_XKB_ID_USE_CORE_KBD, 0, 0, 1, index, 0, 0, 0);
    connection_.synchronize();
}

void XClient::lockModifiers(std::uint8_t mask, bool isOn) {
    const std::uint8_t locked = isOn ? mask : 0;
    xcb_xkb_latch_lock_state(connection_.get(), XCB_XKB_ID_USE_CORE_KBD, mask, locked, 0, 0, 0, 0,
                             0);
    connection_.synchronize();
}

void XClient::freezePointer() {
    const x11::XcbReply<xcb_grab_pointer_reply_t> reply(xcb_grab_pointer_reply(
        connection_.get(),
        xcb_grab_pointer(connection_.get(), 0, connection_.root(), XCB_EVENT_MASK_BUTTON_PRESS,
                         XCB_GRAB_MODE_SYNC, XCB_GRAB_MODE_ASYNC, XCB_NONE, XCB_NONE,
                         XCB_CURRENT_TIME),
        nullptr));
    EXPECT_TRUE(reply && reply->status == XCB_GRAB_STATUS_SUCCESS);
}

void XClient::thawPointer() {
    xcb_allow_events(connection_.get(), XCB_ALLOW_ASYNC_POINTER, XCB_CURRENT_TIME);
    connection_.synchronize();
}

std::vector<std::uint8_t> XClient::pointerMapping() {
    const x11::XcbReply<xcb_get_pointer_mapping_reply_t> reply(xcb_get_pointer_mapping_reply(
        connection_.get(), xcb_get_pointer_mapping(connection_.get()), nullptr));
    const std::uint8_t *buttons = xcb_get_pointer_mapping_map(reply.get());
    return {buttons, buttons + xcb_get_pointer_mapping_map_length(reply.get())};
}

void XClient::setPointerMapping(const std::vector<std::uint8_t> &mapping) {
    const auto length = static_cast<std::uint8_t>(mapping.size());
    const x11::XcbReply<xcb_set_pointer_mapping_reply_t> reply(xcb_set_pointer_mapping_reply(
        connection_.get(), xcb_set_pointer_mapping(connection_.get(), length, mapping.data()),
        nullptr));
    EXPECT_TRUE(reply && reply->status == XCB_MAPPING_STATUS_SUCCESS);
}

int XClient::grabKey(xcb_keycode_t key, std::uint16_t modifiers) {
    const auto request = xcb_grab_key_checked(connection_.get(), 0, connection_.root(), modifiers,
                                              key, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
    const x11::XcbReply<xcb_generic_error_t> error(xcb_request_check(connection_.get(), request));
    return error ? error->error_code : 0;
}

void XClient::giveKeysBack() {
    xcb_ungrab_key(connection_.get(), XCB_GRAB_ANY, connection_.root(), XCB_MOD_MASK_ANY);
    connection_.synchronize();
}

void setLayouts(const std::string &layouts) {
    EXPECT_EQ(std::system(("setxkbmap -layout " + layouts).c_str()), 0); // NOLINT
}

} // namespace corvane::contract
