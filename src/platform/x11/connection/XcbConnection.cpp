#include "platform/x11/connection/XcbConnection.h"

#include <cstdint>
#include <utility>

namespace corvane::x11 {

namespace {

const xcb_screen_t *screenOfNumber(xcb_connection_t *connection, int number) {
    xcb_screen_iterator_t screens = xcb_setup_roots_iterator(xcb_get_setup(connection));
    for (; screens.rem > 0 && number > 0; --number) {
        xcb_screen_next(&screens);
    }
    return screens.rem > 0 ? screens.data : nullptr;
}

} // namespace

std::expected<std::unique_ptr<XcbConnection>, int> XcbConnection::open() {
    int screenNumber = 0;
    XcbHandle connection = connectOneByOne(nullptr, &screenNumber);
    if (const int error = xcb_connection_has_error(connection.get()); error != 0) {
        return std::unexpected(error);
    }
    const xcb_screen_t *screen = screenOfNumber(connection.get(), screenNumber);
    if (screen == nullptr) {
        return std::unexpected(XCB_CONN_CLOSED_INVALID_SCREEN);
    }
    return std::unique_ptr<XcbConnection>(
        new XcbConnection(std::move(connection), screenNumber, screen)); // NOLINT
}

XcbConnection::XcbConnection(XcbHandle connection, int screenNumber, const xcb_screen_t *screen)
    : connection_(std::move(connection)),
      screenNumber_(screenNumber),
      screen_(screen) {}

void XcbConnection::synchronise() const {
    const XcbReply<xcb_get_input_focus_reply_t> reply(
        xcb_get_input_focus_reply(get(), xcb_get_input_focus(get()), nullptr));
}

xcb_atom_t XcbConnection::atom(std::string_view name) const {
    const auto cookie =
        xcb_intern_atom(get(), 0, static_cast<std::uint16_t>(name.size()), name.data());
    const XcbReply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(get(), cookie, nullptr));
    return reply ? reply->atom : static_cast<xcb_atom_t>(XCB_ATOM_NONE);
}

XcbReply<xcb_generic_error_t> XcbConnection::check(xcb_void_cookie_t cookie) const {
    return XcbReply<xcb_generic_error_t>(xcb_request_check(get(), cookie));
}

} // namespace corvane::x11
