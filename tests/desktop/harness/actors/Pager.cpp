#include "Pager.h"

#include "WaitUntil.h"

#include <xcb/xcb_icccm.h>

#include <stdexcept>
#include <string>

namespace corvane::desktop {

namespace {

/// Window managers carry out a pager's requests also where they refuse a program's.
constexpr std::uint32_t fromPager = 2;

} // namespace

void Pager::minimise(xcb_window_t window) const {
    connection_.askWindowManager(window, "WM_CHANGE_STATE", {XCB_ICCCM_WM_STATE_ICONIC});
    awaitProperty(window, "WM_STATE", XCB_ICCCM_WM_STATE_ICONIC);
}

void Pager::activate(xcb_window_t window) const {
    connection_.askWindowManager(window, "_NET_ACTIVE_WINDOW",
                                 {fromPager, XCB_CURRENT_TIME, XCB_WINDOW_NONE});
    awaitProperty(window, "WM_STATE", XCB_ICCCM_WM_STATE_NORMAL);
}

void Pager::moveToWorkspace(xcb_window_t window, std::uint32_t workspace) const {
    ensureTwoWorkspaces();
    connection_.askWindowManager(window, "_NET_WM_DESKTOP", {workspace, fromPager});
    awaitProperty(window, "_NET_WM_DESKTOP", workspace);
}

void Pager::showWorkspace(std::uint32_t workspace) const {
    ensureTwoWorkspaces();
    connection_.askWindowManager(connection_.root(), "_NET_CURRENT_DESKTOP",
                                 {workspace, XCB_CURRENT_TIME});
    awaitProperty(connection_.root(), "_NET_CURRENT_DESKTOP", workspace);
}

void Pager::ensureTwoWorkspaces() const {
    constexpr const char *count = "_NET_NUMBER_OF_DESKTOPS";
    if (connection_.property(connection_.root(), count).value_or(1) < 2) {
        connection_.askWindowManager(connection_.root(), count, {2});
        awaitProperty(connection_.root(), count, 2);
    }
}

void Pager::awaitProperty(xcb_window_t window, std::string_view name, std::uint32_t value) const {
    if (!waitUntil([&] { return connection_.property(window, name) == value; })) {
        throw std::runtime_error("The window manager does not set " + std::string(name));
    }
}

} // namespace corvane::desktop
