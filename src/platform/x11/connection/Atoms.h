#pragma once

#include <xcb/xproto.h>

#include <span>
#include <string_view>

namespace corvane::x11 {

/// The numbers that the X server has given to the names the program uses. They are the same for
/// every connection to one server.
struct Atoms {
    xcb_atom_t utf8String = XCB_ATOM_NONE;
    xcb_atom_t compoundText = XCB_ATOM_NONE;

    // What window managers say of themselves and of the windows they manage.
    xcb_atom_t supportingWmCheck = XCB_ATOM_NONE;
    xcb_atom_t supported = XCB_ATOM_NONE;
    xcb_atom_t clientList = XCB_ATOM_NONE;
    xcb_atom_t clientListStacking = XCB_ATOM_NONE;
    xcb_atom_t currentDesktop = XCB_ATOM_NONE;
    xcb_atom_t activeWindow = XCB_ATOM_NONE;

    // What a window and its window manager say of the window.
    xcb_atom_t wmState = XCB_ATOM_NONE;
    xcb_atom_t name = XCB_ATOM_NONE;
    xcb_atom_t processIdentifier = XCB_ATOM_NONE;
    xcb_atom_t desktop = XCB_ATOM_NONE;
    xcb_atom_t frameExtents = XCB_ATOM_NONE;
    xcb_atom_t clientFrameExtents = XCB_ATOM_NONE;
    xcb_atom_t state = XCB_ATOM_NONE;
    xcb_atom_t stateHidden = XCB_ATOM_NONE;

    xcb_atom_t type = XCB_ATOM_NONE;
    xcb_atom_t typeNormal = XCB_ATOM_NONE;
    xcb_atom_t typeDialog = XCB_ATOM_NONE;
    xcb_atom_t typeUtility = XCB_ATOM_NONE;
    xcb_atom_t typeDesktop = XCB_ATOM_NONE;
    xcb_atom_t typeDock = XCB_ATOM_NONE;
    xcb_atom_t typeToolbar = XCB_ATOM_NONE;
    xcb_atom_t typeMenu = XCB_ATOM_NONE;
    xcb_atom_t typeDropdownMenu = XCB_ATOM_NONE;
    xcb_atom_t typePopupMenu = XCB_ATOM_NONE;
    xcb_atom_t typeCombo = XCB_ATOM_NONE;
    xcb_atom_t typeTooltip = XCB_ATOM_NONE;
    xcb_atom_t typeNotification = XCB_ATOM_NONE;
    xcb_atom_t typeSplash = XCB_ATOM_NONE;
    xcb_atom_t typeDragged = XCB_ATOM_NONE;

    // Compositing managers and system trays, of which each screen has one.
    xcb_atom_t compositorSelection = XCB_ATOM_NONE;
    xcb_atom_t compositorShadow = XCB_ATOM_NONE;
    xcb_atom_t traySelection = XCB_ATOM_NONE;
    xcb_atom_t trayColours = XCB_ATOM_NONE;
    xcb_atom_t selectionAnnouncement = XCB_ATOM_NONE;

    // The program's own.
    xcb_atom_t instance = XCB_ATOM_NONE;
    xcb_atom_t pressedButton = XCB_ATOM_NONE;

    struct Name {
        std::string_view text;
        xcb_atom_t Atoms::*atom;
        /// Whether the screen's number follows the text.
        bool isPerScreen = false;
    };
    /// The name of every atom.
    static std::span<const Name> names();

    /// Requests all of them from the server in one round trip. XCB_ATOM_NONE for those it does not
    /// provide.
    static Atoms of(xcb_connection_t *connection, int screenNumber);
};

} // namespace corvane::x11
