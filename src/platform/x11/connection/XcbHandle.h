#pragma once

#include <xcb/xcb.h>

#include <memory>
#include <mutex>

namespace corvane::x11 {

struct XcbDisconnect {
    void operator()(xcb_connection_t *connection) const { xcb_disconnect(connection); }
};

/// Ends its connection to an X server.
using XcbHandle = std::unique_ptr<xcb_connection_t, XcbDisconnect>;

/// Connects to the X server `display`, or to the one named by DISPLAY where that is null. Looking
/// up the right to connect uses one buffer for all threads, so they connect one by one.
inline XcbHandle connectOneByOne(const char *display, int *screenNumber) {
    static std::mutex connecting;
    const std::lock_guard lock(connecting);
    return XcbHandle(xcb_connect(display, screenNumber));
}

} // namespace corvane::x11
