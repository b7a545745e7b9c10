#pragma once

#include "platform/x11/connection/XcbHandle.h"
#include "platform/x11/connection/XcbReply.h"

#include <xcb/xcb.h>

#include <expected>
#include <memory>
#include <string_view>

namespace corvane::x11 {

/// A connection to the X server named by DISPLAY and its default screen. One thread at a time.
class XcbConnection {
  public:
    /// The XCB error number when no server can be reached.
    static std::expected<std::unique_ptr<XcbConnection>, int> open();

    xcb_connection_t *get() const { return connection_.get(); }
    const xcb_screen_t &screen() const { return *screen_; }
    xcb_window_t root() const { return screen_->root; }
    int screenNumber() const { return screenNumber_; }
    int fileDescriptor() const { return xcb_get_file_descriptor(get()); }

    /// Whether the server has gone away.
    bool isLost() const { return xcb_connection_has_error(get()) != 0; }

    void flush() const { xcb_flush(get()); }

    /// Waits until the server has carried out every request so far; it drops those it has not read
    /// when the connection ends.
    void synchronise() const;

    /// The atom of that name, made where missing; XCB_ATOM_NONE when the server does not answer.
    xcb_atom_t atom(std::string_view name) const;

    /// Waits for the request's answer; null when it succeeded.
    XcbReply<xcb_generic_error_t> check(xcb_void_cookie_t cookie) const;

  private:
    XcbConnection(XcbHandle connection, int screenNumber, const xcb_screen_t *screen);

    XcbHandle connection_;
    int screenNumber_;
    const xcb_screen_t *screen_;
};

} // namespace corvane::x11
