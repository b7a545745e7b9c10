#include "platform/x11/click/ButtonReports.h"

#include "platform/x11/connection/Xcb.h"

#include <QGuiApplication>

namespace corvane::x11 {

void dropButtonReportsOfKeyboard() {
    const auto *application = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    if (application == nullptr) {
        return;
    }
    xcb_connection_t *const connection = application->connection();
    const auto *extension = xcb_get_extension_data(connection, &xcb_xkb_id);
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
