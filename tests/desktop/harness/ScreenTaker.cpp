#include "ScreenTaker.h"

#include "WaitUntil.h"
#include "platform/x11/connection/XcbReply.h"

#include <array>
#include <cstdint>

namespace corvane::desktop {

using x11::XcbReply;

ScreenTaker::ScreenTaker(const VirtualDesktop &desktop)
    : connection_(desktop.display()),
      window_(xcb_generate_id(connection_.get())) {}

void ScreenTaker::openOver(const Area &area, bool isUnmanaged) {
    const std::array<std::uint32_t, 2> values{
        isUnmanaged ? 1U : 0U, XCB_EVENT_MASK_BUTTON_PRESS | XCB_EVENT_MASK_FOCUS_CHANGE};
    xcb_create_window(connection_.get(), XCB_COPY_FROM_PARENT, window_, connection_.root(),
                      static_cast<std::int16_t>(area.x), static_cast<std::int16_t>(area.y),
                      static_cast<std::uint16_t>(area.width),
                      static_cast<std::uint16_t>(area.height), 0, XCB_WINDOW_CLASS_INPUT_OUTPUT,
                      XCB_COPY_FROM_PARENT, XCB_CW_OVERRIDE_REDIRECT | XCB_CW_EVENT_MASK,
                      values.data());
    xcb_map_window(connection_.get(), window_);
    connection_.synchronize();
}

void ScreenTaker::openOverAll(bool isUnmanaged) {
    const xcb_screen_t &screen = connection_.screen();
    openOver({0, 0, screen.width_in_pixels, screen.height_in_pixels}, isUnmanaged);
}

bool ScreenTaker::goFullscreen() {
    constexpr std::uint32_t add = 1;
    connection_.askWindowManager(window_, "_NET_WM_STATE",
                                 {add, connection_.atom("_NET_WM_STATE_FULLSCREEN")});
    return waitUntil([this] {
        const XcbReply<xcb_get_geometry_reply_t> area(xcb_get_geometry_reply(
            connection_.get(), xcb_get_geometry(connection_.get(), window_), nullptr));
        const xcb_screen_t &screen = connection_.screen();
        return area && area->width == screen.width_in_pixels &&
               area->height == screen.height_in_pixels;
    });
}

void ScreenTaker::lower() {
    constexpr std::uint32_t mode = XCB_STACK_MODE_BELOW;
    xcb_configure_window(connection_.get(), window_, XCB_CONFIG_WINDOW_STACK_MODE, &mode);
    connection_.synchronize();
}

bool ScreenTaker::grabKeyboardAndPointer() {
    return waitUntil([this] { return grabKeyboard() && grabPointer(); });
}

bool ScreenTaker::grabKeyboard() {
    const auto cookie = xcb_grab_keyboard(connection_.get(), 0, window_, XCB_CURRENT_TIME,
                                          XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
    const XcbReply<xcb_grab_keyboard_reply_t> reply(
        xcb_grab_keyboard_reply(connection_.get(), cookie, nullptr));
    return reply && reply->status == XCB_GRAB_STATUS_SUCCESS;
}

bool ScreenTaker::grabPointer() {
    const auto cookie = xcb_grab_pointer(connection_.get(), 0, window_, XCB_EVENT_MASK_BUTTON_PRESS,
                                         XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC, XCB_NONE,
                                         XCB_NONE, XCB_CURRENT_TIME);
    const XcbReply<xcb_grab_pointer_reply_t> reply(
        xcb_grab_pointer_reply(connection_.get(), cookie, nullptr));
    return reply && reply->status == XCB_GRAB_STATUS_SUCCESS;
}

void ScreenTaker::close() {
    xcb_ungrab_keyboard(connection_.get(), XCB_CURRENT_TIME);
    xcb_ungrab_pointer(connection_.get(), XCB_CURRENT_TIME);
    xcb_destroy_window(connection_.get(), window_);
    connection_.synchronize();
}

int ScreenTaker::seen(int type) {
    connection_.synchronize();
    while (const XcbReply<xcb_generic_event_t> event{xcb_poll_for_event(connection_.get())}) {
        ++seen_[event->response_type];
    }
    return seen_[type];
}

} // namespace corvane::desktop
