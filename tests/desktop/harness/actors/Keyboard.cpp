#include "Keyboard.h"

#include "platform/x11/connection/Xcb.h"

#include <X11/keysym.h>
#include <xcb/xtest.h>

#include <stdexcept>
#include <string>

namespace corvane::desktop {

namespace {

void sendKey(const DisplayConnection &connection, std::uint8_t type, xcb_keycode_t key) {
    xcb_test_fake_input(connection.get(), type, key, XCB_CURRENT_TIME, XCB_WINDOW_NONE, 0, 0, 0);
    connection.synchronize();
}

struct FreeSymbols {
    void operator()(xcb_key_symbols_t *symbols) const { xcb_key_symbols_free(symbols); }
};

} // namespace

void Keyboard::press(xcb_keycode_t key) const { sendKey(connection_, XCB_KEY_PRESS, key); }

void Keyboard::release(xcb_keycode_t key) const { sendKey(connection_, XCB_KEY_RELEASE, key); }

void Keyboard::tap(xcb_keycode_t key) const {
    press(key);
    release(key);
}

xcb_keycode_t Keyboard::keyOf(xcb_keysym_t symbol) const {
    const std::unique_ptr<xcb_key_symbols_t, FreeSymbols> symbols(
        xcb_key_symbols_alloc(connection_.get()));
    const x11::XcbReply<xcb_keycode_t> keys(xcb_key_symbols_get_keycode(symbols.get(), symbol));
    if (!keys || *keys == XCB_NO_SYMBOL) {
        throw std::runtime_error("No key carries the symbol " + std::to_string(symbol));
    }
    return *keys;
}

void Keyboard::pressHotKey(xcb_keycode_t key) const {
    holdHotKey(key);
    releaseHotKey(key);
}

void Keyboard::holdHotKey(xcb_keycode_t key) const {
    press(keyOf(XK_Super_L));
    press(keyOf(XK_Shift_L));
    press(key);
}

void Keyboard::releaseHotKey(xcb_keycode_t key) const {
    release(key);
    release(keyOf(XK_Shift_L));
    release(keyOf(XK_Super_L));
}

std::uint16_t Keyboard::state() const {
    const x11::XcbReply<xcb_query_pointer_reply_t> reply(xcb_query_pointer_reply(
        connection_.get(), xcb_query_pointer(connection_.get(), connection_.root()), nullptr));
    return reply ? reply->mask : std::uint16_t{0};
}

} // namespace corvane::desktop
