#include "platform/x11/windows/WindowAtoms.h"

#include "platform/x11/connection/XcbConnection.h"

namespace corvane::x11 {

WindowAtoms WindowAtoms::of(const XcbConnection &connection) {
    return {.utf8String = connection.atom("UTF8_STRING"),
            .compoundText = connection.atom("COMPOUND_TEXT"),
            .wmState = connection.atom("WM_STATE"),
            .supportingWmCheck = connection.atom("_NET_SUPPORTING_WM_CHECK"),
            .clientList = connection.atom("_NET_CLIENT_LIST"),
            .clientListStacking = connection.atom("_NET_CLIENT_LIST_STACKING"),
            .currentDesktop = connection.atom("_NET_CURRENT_DESKTOP"),
            .name = connection.atom("_NET_WM_NAME"),
            .processIdentifier = connection.atom("_NET_WM_PID"),
            .desktop = connection.atom("_NET_WM_DESKTOP"),
            .frameExtents = connection.atom("_NET_FRAME_EXTENTS"),
            .clientFrameExtents = connection.atom("_GTK_FRAME_EXTENTS"),
            .state = connection.atom("_NET_WM_STATE"),
            .stateHidden = connection.atom("_NET_WM_STATE_HIDDEN"),
            .type = connection.atom("_NET_WM_WINDOW_TYPE"),
            .typeNormal = connection.atom("_NET_WM_WINDOW_TYPE_NORMAL"),
            .typeDialog = connection.atom("_NET_WM_WINDOW_TYPE_DIALOG"),
            .typeUtility = connection.atom("_NET_WM_WINDOW_TYPE_UTILITY"),
            .typeDesktop = connection.atom("_NET_WM_WINDOW_TYPE_DESKTOP"),
            .typeDock = connection.atom("_NET_WM_WINDOW_TYPE_DOCK"),
            .typeToolbar = connection.atom("_NET_WM_WINDOW_TYPE_TOOLBAR"),
            .typeMenu = connection.atom("_NET_WM_WINDOW_TYPE_MENU"),
            .typeDropdownMenu = connection.atom("_NET_WM_WINDOW_TYPE_DROPDOWN_MENU"),
            .typePopupMenu = connection.atom("_NET_WM_WINDOW_TYPE_POPUP_MENU"),
            .typeCombo = connection.atom("_NET_WM_WINDOW_TYPE_COMBO"),
            .typeTooltip = connection.atom("_NET_WM_WINDOW_TYPE_TOOLTIP"),
            .typeNotification = connection.atom("_NET_WM_WINDOW_TYPE_NOTIFICATION"),
            .typeSplash = connection.atom("_NET_WM_WINDOW_TYPE_SPLASH"),
            .typeDragged = connection.atom("_NET_WM_WINDOW_TYPE_DND")};
}

} // namespace corvane::x11
