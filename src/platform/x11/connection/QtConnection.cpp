#include "platform/x11/connection/QtConnection.h"

#include "platform/x11/connection/Activation.h"
#include "platform/x11/connection/Xcb.h"

#include <QGuiApplication>

#include <cstdint>

namespace corvane::x11 {

namespace {

/// Null when Qt draws without an X server.
xcb_connection_t *connectionOfQt() {
    const auto *application = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return application != nullptr ? application->connection() : nullptr;
}

} // namespace

void activate(const Atoms &atoms, xcb_window_t window) {
    if (xcb_connection_t *const connection = connectionOfQt()) {
        activate(connection, atoms, window);
    }
}

void showOnEveryWorkspace(const Atoms &atoms, xcb_window_t window) {
    if (xcb_connection_t *const connection = connectionOfQt()) {
        constexpr std::uint32_t everyWorkspace = 0xFFFFFFFF;
        xcb_change_property(connection, XCB_PROP_MODE_REPLACE, window, atoms.desktop,
                            XCB_ATOM_CARDINAL, 32, 1, &everyWorkspace);
    }
}

void dropButtonReportsOfKeyboard() {
    xcb_connection_t *const connection = connectionOfQt();
    const auto *extension =
        connection != nullptr ? xcb_get_extension_data(connection, &xcb_xkb_id) : nullptr;
    if (extension == nullptr || extension->present == 0) {
        return;
    }
    const xcb_xkb_select_events_details_t details{.affectState = XCB_XKB_STATE_PART_POINTER_BUTTONS,
                                                  .stateDetails = 0};
    xcb_xkb_select_events_aux(connection, XCB_XKB_ID_USE_CORE_KBD, XCB_XKB_EVENT_TYPE_STATE_NOTIFY,
                              0, 0, 0, 0, &details);
    xcb_flush(connection);
}

} // namespace corvane::x11
