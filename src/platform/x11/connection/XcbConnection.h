#pragma once

#include "platform/x11/connection/Atoms.h"
#include "platform/x11/connection/Xcb.h"

#include <expected>
#include <memory>
#include <vector>

namespace corvane::x11 {

/// A connection to an X server and its default screen. One thread at a time.
class XcbConnection {
  public:
    using Result = std::expected<std::unique_ptr<XcbConnection>, int>;

    /// Connects to the X server named by DISPLAY. The XCB error number when it cannot be reached.
    static Result open();

    /// Opens a connection more to the same server. Any thread.
    Result openAnother() const;

    xcb_connection_t *get() const { return connection_.get(); }
    const xcb_screen_t &screen() const { return *screen_; }
    xcb_window_t root() const { return screen_->root; }
    const Atoms &atoms() const { return *atoms_; }
    int fileDescriptor() const { return xcb_get_file_descriptor(get()); }

    /// Whether the server has gone away.
    bool isLost() const { return xcb_connection_has_error(get()) != 0; }

    void flush() const { xcb_flush(get()); }

    /// Waits until the server has carried out every request so far. A server drops the requests it
    /// has not read when a connection is closed.
    void synchronise() const;

    /// Waits until the server has carried out a checked request; its error, null for success.
    XcbReply<xcb_generic_error_t> check(xcb_void_cookie_t cookie) const;

    /// What the server says of an extension; null when it lacks the extension.
    const xcb_query_extension_reply_t *extension(xcb_extension_t &extension) const;

    /// The window that owns a selection; XCB_WINDOW_NONE for none.
    xcb_window_t selectionOwner(xcb_atom_t selection) const;

    /// The windows directly inside `window`, lowest first.
    std::vector<xcb_window_t> childrenOf(xcb_window_t window) const;

    /// Creates a window that is never shown, to own a selection or to carry a property.
    xcb_window_t createHiddenWindow() const;

  private:
    XcbConnection(XcbHandle connection, const xcb_screen_t *screen,
                  std::shared_ptr<const Atoms> atoms);

    static Result open(std::shared_ptr<const Atoms> atoms);

    XcbHandle connection_;
    const xcb_screen_t *screen_;
    std::shared_ptr<const Atoms> atoms_;
};

} // namespace corvane::x11
