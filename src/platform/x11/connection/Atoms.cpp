#include "platform/x11/connection/Atoms.h"

#include "platform/x11/connection/Xcb.h"

#include <array>
#include <cstdint>
#include <string>

namespace corvane::x11 {

namespace {

constexpr std::array allNames{
    Atoms::Name{"UTF8_STRING", &Atoms::utf8String},
    Atoms::Name{"COMPOUND_TEXT", &Atoms::compoundText},
    Atoms::Name{"_NET_SUPPORTING_WM_CHECK", &Atoms::supportingWmCheck},
    Atoms::Name{"_NET_SUPPORTED", &Atoms::supported},
    Atoms::Name{"_NET_CLIENT_LIST", &Atoms::clientList},
    Atoms::Name{"_NET_CLIENT_LIST_STACKING", &Atoms::clientListStacking},
    Atoms::Name{"_NET_CURRENT_DESKTOP", &Atoms::currentDesktop},
    Atoms::Name{"_NET_ACTIVE_WINDOW", &Atoms::activeWindow},
    Atoms::Name{"WM_STATE", &Atoms::wmState},
    Atoms::Name{"_NET_WM_NAME", &Atoms::name},
    Atoms::Name{"_NET_WM_PID", &Atoms::processIdentifier},
    Atoms::Name{"_NET_WM_DESKTOP", &Atoms::desktop},
    Atoms::Name{"_NET_FRAME_EXTENTS", &Atoms::frameExtents},
    Atoms::Name{"_GTK_FRAME_EXTENTS", &Atoms::clientFrameExtents},
    Atoms::Name{"_NET_WM_STATE", &Atoms::state},
    Atoms::Name{"_NET_WM_STATE_HIDDEN", &Atoms::stateHidden},
    Atoms::Name{"_NET_WM_WINDOW_TYPE", &Atoms::type},
    Atoms::Name{"_NET_WM_WINDOW_TYPE_NORMAL", &Atoms::typeNormal},
    Atoms::Name{"_NET_WM_WINDOW_TYPE_DIALOG", &Atoms::typeDialog},
    Atoms::Name{"_NET_WM_WINDOW_TYPE_UTILITY", &Atoms::typeUtility},
    Atoms::Name{"_NET_WM_WINDOW_TYPE_DESKTOP", &Atoms::typeDesktop},
    Atoms::Name{"_NET_WM_WINDOW_TYPE_DOCK", &Atoms::typeDock},
    Atoms::Name{"_NET_WM_WINDOW_TYPE_TOOLBAR", &Atoms::typeToolbar},
    Atoms::Name{"_NET_WM_WINDOW_TYPE_MENU", &Atoms::typeMenu},
    Atoms::Name{"_NET_WM_WINDOW_TYPE_DROPDOWN_MENU", &Atoms::typeDropdownMenu},
    Atoms::Name{"_NET_WM_WINDOW_TYPE_POPUP_MENU", &Atoms::typePopupMenu},
    Atoms::Name{"_NET_WM_WINDOW_TYPE_COMBO", &Atoms::typeCombo},
    Atoms::Name{"_NET_WM_WINDOW_TYPE_TOOLTIP", &Atoms::typeTooltip},
    Atoms::Name{"_NET_WM_WINDOW_TYPE_NOTIFICATION", &Atoms::typeNotification},
    Atoms::Name{"_NET_WM_WINDOW_TYPE_SPLASH", &Atoms::typeSplash},
    Atoms::Name{"_NET_WM_WINDOW_TYPE_DND", &Atoms::typeDragged},
    Atoms::Name{"_NET_WM_CM_S", &Atoms::compositorSelection, true},
    Atoms::Name{"_COMPTON_SHADOW", &Atoms::compositorShadow},
    Atoms::Name{"_NET_SYSTEM_TRAY_S", &Atoms::traySelection, true},
    Atoms::Name{"_NET_SYSTEM_TRAY_COLORS", &Atoms::trayColours},
    Atoms::Name{"MANAGER", &Atoms::selectionAnnouncement},
    Atoms::Name{"_CORVANE_INSTANCE", &Atoms::instance},
    Atoms::Name{"_CORVANE_PRESSED_BUTTON", &Atoms::pressedButton}};

static_assert(sizeof(Atoms) == allNames.size() * sizeof(xcb_atom_t), "every atom has a name");

} // namespace

std::span<const Atoms::Name> Atoms::names() { return allNames; }

Atoms Atoms::of(xcb_connection_t *connection, int screenNumber) {
    const std::string screen = std::to_string(screenNumber);
    std::array<xcb_intern_atom_cookie_t, allNames.size()> cookies{};
    for (std::size_t index = 0; index < allNames.size(); ++index) {
        const Name &name = allNames[index];
        const std::string text = std::string(name.text) + (name.isPerScreen ? screen : "");
        cookies[index] =
            xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(text.size()), text.data());
    }
    Atoms atoms;
    for (std::size_t index = 0; index < allNames.size(); ++index) {
        if (const auto atom = reply<xcb_intern_atom_reply>(connection, cookies[index])) {
            atoms.*allNames[index].atom = atom->atom;
        }
    }
    return atoms;
}

} // namespace corvane::x11
