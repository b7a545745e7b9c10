#include "platform/x11/windows/WindowActivation.h"

#include "platform/x11/connection/Xcb.h"

#include <QGuiApplication>
#include <QWidget>
#include <xcb/xcb.h>

#include <cstdint>
#include <string_view>

namespace corvane::x11 {

namespace {

void requestActivation(xcb_connection_t *connection, xcb_window_t window) {
    constexpr std::string_view name = "_NET_ACTIVE_WINDOW";
    const XcbReply<xcb_intern_atom_reply_t> atom(xcb_intern_atom_reply(
        connection, xcb_intern_atom(connection, 0, name.size(), name.data()), nullptr));
    if (!atom) {
        return;
    }
    constexpr std::uint32_t fromTaskBar = 2;
    xcb_client_message_event_t request{};
    request.response_type = XCB_CLIENT_MESSAGE;
    request.format = 32;
    request.window = window;
    request.type = atom->atom;
    request.data.data32[0] = fromTaskBar;
    const auto root = xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
    xcb_send_event(connection, 0, root,
                   XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                   reinterpret_cast<const char *>(&request));
    xcb_flush(connection);
}

} // namespace

void activateIgnoringOthers(QWidget &window) {
    window.raise();
    window.activateWindow();
    if (const auto *application = qGuiApp->nativeInterface<QNativeInterface::QX11Application>()) {
        requestActivation(application->connection(), static_cast<xcb_window_t>(window.winId()));
    }
}

} // namespace corvane::x11
