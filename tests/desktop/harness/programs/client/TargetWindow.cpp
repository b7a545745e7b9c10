#include "TargetWindow.h"

#include "platform/x11/connection/Xcb.h"

#include <xcb/xcb_icccm.h>

#include <array>

#include <unistd.h>

namespace corvane::desktop {

TargetWindow::TargetWindow(xcb_connection_t *connection, const TargetWindowSettings &settings)
    : connection_(connection),
      id_(xcb_generate_id(connection)) {
    create(settings);
    describe(settings);
    setPosition(settings);
    xcb_map_window(connection_, id_);
    xcb_flush(connection_);
}

TargetWindow::~TargetWindow() {
    xcb_destroy_window(connection_, id_);
    xcb_flush(connection_);
}

void TargetWindow::moveTo(std::int32_t x, std::int32_t y) const {
    const std::array values{static_cast<std::uint32_t>(x), static_cast<std::uint32_t>(y)};
    xcb_configure_window(connection_, id_, XCB_CONFIG_WINDOW_X | XCB_CONFIG_WINDOW_Y,
                         values.data());
    xcb_flush(connection_);
}

void TargetWindow::setTitle(const std::string &title) const {
    setText("_NET_WM_NAME", "UTF8_STRING", title);
    setText("WM_NAME", "STRING", title);
    xcb_flush(connection_);
}

void TargetWindow::create(const TargetWindowSettings &settings) const {
    const xcb_screen_t *screen = xcb_setup_roots_iterator(xcb_get_setup(connection_)).data;
    const std::array<std::uint32_t, 3> values{screen->white_pixel, settings.isOverride ? 1U : 0U,
                                              XCB_EVENT_MASK_BUTTON_PRESS |
                                                  XCB_EVENT_MASK_BUTTON_RELEASE |
                                                  XCB_EVENT_MASK_STRUCTURE_NOTIFY};
    xcb_create_window(
        connection_, XCB_COPY_FROM_PARENT, id_, screen->root, settings.x, settings.y,
        settings.width, settings.height, 0, XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT,
        XCB_CW_BACK_PIXEL | XCB_CW_OVERRIDE_REDIRECT | XCB_CW_EVENT_MASK, values.data());
}

void TargetWindow::describe(const TargetWindowSettings &settings) const {
    setTitle(settings.title);
    const std::string instanceAndClass = settings.className + '\0' + settings.className + '\0';
    setText("WM_CLASS", "STRING", instanceAndClass);
    if (settings.pid != 0) {
        const auto pid = static_cast<std::uint32_t>(settings.pid < 0 ? getpid() : settings.pid);
        setNumbers("_NET_WM_PID", XCB_ATOM_CARDINAL, &pid, 1);
    }
    if (settings.ownShadow > 0) {
        const std::array extents{settings.ownShadow, settings.ownShadow, settings.ownShadow,
                                 settings.ownShadow};
        setNumbers("_GTK_FRAME_EXTENTS", XCB_ATOM_CARDINAL, extents.data(), extents.size());
    }
    if (!settings.type.empty()) {
        const std::uint32_t type = atom(settings.type);
        setNumbers("_NET_WM_WINDOW_TYPE", XCB_ATOM_ATOM, &type, 1);
    }
    if (settings.isFullscreen) {
        const std::uint32_t fullscreen = atom("_NET_WM_STATE_FULLSCREEN");
        setNumbers("_NET_WM_STATE", XCB_ATOM_ATOM, &fullscreen, 1);
    }
}

/// Makes the window manager leave the position alone, and to mean the client area by it.
void TargetWindow::setPosition(const TargetWindowSettings &settings) const {
    xcb_size_hints_t hints{};
    xcb_icccm_size_hints_set_position(&hints, 1, settings.x, settings.y);
    xcb_icccm_size_hints_set_size(&hints, 1, settings.width, settings.height);
    xcb_icccm_size_hints_set_win_gravity(&hints, XCB_GRAVITY_STATIC);
    xcb_icccm_set_wm_normal_hints(connection_, id_, &hints);
}

void TargetWindow::setText(const char *property, const char *type, const std::string &text) const {
    xcb_change_property(connection_, XCB_PROP_MODE_REPLACE, id_, atom(property), atom(type), 8,
                        static_cast<std::uint32_t>(text.size()), text.data());
}

void TargetWindow::setNumbers(const char *property, xcb_atom_t type, const std::uint32_t *values,
                              std::uint32_t count) const {
    xcb_change_property(connection_, XCB_PROP_MODE_REPLACE, id_, atom(property), type, 32, count,
                        values);
}

xcb_atom_t TargetWindow::atom(const std::string &name) const {
    const auto cookie =
        xcb_intern_atom(connection_, 0, static_cast<std::uint16_t>(name.size()), name.data());
    const x11::XcbReply<xcb_intern_atom_reply_t> reply(
        xcb_intern_atom_reply(connection_, cookie, nullptr));
    return reply ? reply->atom : static_cast<xcb_atom_t>(XCB_ATOM_NONE);
}

} // namespace corvane::desktop
