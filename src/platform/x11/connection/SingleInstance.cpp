#include "platform/x11/connection/SingleInstance.h"

namespace corvane::x11 {

namespace {

xcb_window_t createInvisibleWindow(const XcbConnection &connection) {
    const xcb_window_t window = xcb_generate_id(connection.get());
    xcb_create_window(connection.get(), XCB_COPY_FROM_PARENT, window, connection.root(), 0, 0, 1, 1,
                      0, XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, 0, nullptr);
    return window;
}

xcb_window_t ownerOf(const XcbConnection &connection, xcb_atom_t selection) {
    const XcbReply<xcb_get_selection_owner_reply_t> reply(xcb_get_selection_owner_reply(
        connection.get(), xcb_get_selection_owner(connection.get(), selection), nullptr));
    return reply ? reply->owner : static_cast<xcb_window_t>(XCB_NONE);
}

} // namespace

std::unique_ptr<SingleInstance> SingleInstance::claim(const XcbConnection &connection) {
    std::unique_ptr<SingleInstance> instance(new SingleInstance(connection)); // NOLINT
    return instance->claimSelection() ? std::move(instance) : nullptr;
}

SingleInstance::SingleInstance(const XcbConnection &connection)
    : connection_(connection),
      selection_(connection_.atom("_CORVANE_INSTANCE")),
      window_(createInvisibleWindow(connection_)) {}

/// Destroying the window gives the selection back.
SingleInstance::~SingleInstance() {
    xcb_destroy_window(connection_.get(), window_);
    connection_.flush();
}

/// No other client can act between the question and the claim.
bool SingleInstance::claimSelection() const {
    xcb_grab_server(connection_.get());
    const xcb_window_t owner = ownerOf(connection_, selection_);
    if (owner == XCB_NONE) {
        xcb_set_selection_owner(connection_.get(), window_, selection_, XCB_CURRENT_TIME);
    }
    xcb_ungrab_server(connection_.get());
    connection_.flush();
    return owner == XCB_NONE;
}

} // namespace corvane::x11
