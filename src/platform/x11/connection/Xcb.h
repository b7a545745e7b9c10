#pragma once

#include <xcb/xcb.h>

// The header has a field named `explicit`, which is a keyword of C++.
#ifdef __clang__
#pragma clang diagnostic push
#pragma clang diagnostic ignored "-Wkeyword-macro"
#endif
#define explicit explicitField // NOLINT
#include <xcb/xkb.h>
#undef explicit
#ifdef __clang__
#pragma clang diagnostic pop
#endif

#include <cstdlib>
#include <memory>
#include <mutex>
#include <type_traits>

namespace corvane::x11 {

/// Frees memory that XCB allocated.
struct XcbFree {
    // NOLINTNEXTLINE(cppcoreguidelines-no-malloc, cppcoreguidelines-owning-memory)
    void operator()(void *memory) const { std::free(memory); }
};

/// A reply, an event or an error of the X server.
template <typename Reply>
using XcbReply = std::unique_ptr<Reply, XcbFree>;

/// Waits for the reply to a request; null when the server refused the request or is gone. `take` is
/// XCB's function for replies of that kind: `reply<xcb_query_tree_reply>(connection, cookie)`.
template <auto take, typename Cookie>
auto reply(xcb_connection_t *connection, Cookie cookie) {
    auto *received = take(connection, cookie, nullptr);
    return XcbReply<std::remove_pointer_t<decltype(received)>>(received);
}

struct XcbDisconnect {
    void operator()(xcb_connection_t *connection) const { xcb_disconnect(connection); }
};

/// Closes its connection to an X server.
using XcbHandle = std::unique_ptr<xcb_connection_t, XcbDisconnect>;

/// Connects to the X server `display`, or to the one named by DISPLAY when that is null. Threads
/// connect one after the other, because the library that reads the authorisation (libXau) has one
/// buffer for the whole process.
inline XcbHandle connectOneByOne(const char *display, int *screenNumber) {
    static std::mutex connecting;
    const std::lock_guard lock(connecting);
    return XcbHandle(xcb_connect(display, screenNumber));
}

} // namespace corvane::x11
