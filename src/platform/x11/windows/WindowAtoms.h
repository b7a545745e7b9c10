#pragma once

#include <xcb/xproto.h>

namespace corvane::x11 {

class XcbConnection;

/// The names under which windows and window managers describe themselves.
struct WindowAtoms {
    static WindowAtoms of(const XcbConnection &connection);

    xcb_atom_t utf8String;
    xcb_atom_t compoundText;
    xcb_atom_t wmState;

    xcb_atom_t supportingWmCheck;
    xcb_atom_t clientList;
    xcb_atom_t clientListStacking;
    xcb_atom_t currentDesktop;

    xcb_atom_t name;
    xcb_atom_t processIdentifier;
    xcb_atom_t desktop;
    xcb_atom_t frameExtents;
    xcb_atom_t clientFrameExtents;

    xcb_atom_t state;
    xcb_atom_t stateHidden;

    xcb_atom_t type;
    xcb_atom_t typeNormal;
    xcb_atom_t typeDialog;
    xcb_atom_t typeUtility;
    xcb_atom_t typeDesktop;
    xcb_atom_t typeDock;
    xcb_atom_t typeToolbar;
    xcb_atom_t typeMenu;
    xcb_atom_t typeDropdownMenu;
    xcb_atom_t typePopupMenu;
    xcb_atom_t typeCombo;
    xcb_atom_t typeTooltip;
    xcb_atom_t typeNotification;
    xcb_atom_t typeSplash;
    xcb_atom_t typeDragged;
};

} // namespace corvane::x11
