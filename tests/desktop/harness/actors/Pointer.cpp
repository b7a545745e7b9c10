#include "Pointer.h"

#include "platform/x11/connection/Xcb.h"

#include <xcb/xtest.h>

#include <stdexcept>

namespace corvane::desktop {

namespace {

x11::XcbReply<xcb_query_pointer_reply_t> queryPointer(const DisplayConnection &connection) {
    x11::XcbReply<xcb_query_pointer_reply_t> reply(xcb_query_pointer_reply(
        connection.get(), xcb_query_pointer(connection.get(), connection.root()), nullptr));
    if (!reply) {
        throw std::runtime_error("The X server is gone");
    }
    return reply;
}

void sendButton(const DisplayConnection &connection, std::uint8_t type, int button) {
    xcb_test_fake_input(connection.get(), type, static_cast<std::uint8_t>(button), XCB_CURRENT_TIME,
                        XCB_WINDOW_NONE, 0, 0, 0);
    connection.synchronize();
}

} // namespace

void Pointer::moveTo(Position position) const {
    constexpr std::uint8_t absolute = 0;
    xcb_test_fake_input(connection_.get(), XCB_MOTION_NOTIFY, absolute, XCB_CURRENT_TIME,
                        connection_.root(), static_cast<std::int16_t>(position.x),
                        static_cast<std::int16_t>(position.y), 0);
    connection_.synchronize();
}

Position Pointer::position() const {
    const auto reply = queryPointer(connection_);
    return {reply->root_x, reply->root_y};
}

void Pointer::press(int button) const { sendButton(connection_, XCB_BUTTON_PRESS, button); }

void Pointer::release(int button) const { sendButton(connection_, XCB_BUTTON_RELEASE, button); }

void Pointer::click(int button) const {
    press(button);
    release(button);
}

void Pointer::drag(Position from, Position to) const {
    moveTo(from);
    press();
    moveTo({(from.x + to.x) / 2, (from.y + to.y) / 2});
    moveTo(to);
    release();
}

bool Pointer::isLeftButtonDown() const {
    return (queryPointer(connection_)->mask & XCB_BUTTON_MASK_1) != 0;
}

} // namespace corvane::desktop
