#include "platform/x11/connection/Activation.h"

#include <cstdint>

namespace corvane::x11 {

void activate(xcb_connection_t *connection, const Atoms &atoms, xcb_window_t window) {
    constexpr std::uint32_t fromTaskBar = 2;
    xcb_client_message_event_t request{};
    request.response_type = XCB_CLIENT_MESSAGE;
    request.format = 32;
    request.window = window;
    request.type = atoms.activeWindow;
    request.data.data32[0] = fromTaskBar;
    const auto root = xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
    xcb_send_event(connection, 0, root,
                   XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                   reinterpret_cast<const char *>(&request));
    xcb_flush(connection);
}

} // namespace corvane::x11
