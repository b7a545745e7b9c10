#include "WindowStorm.h"

#include "DisplayConnection.h"

#include <xcb/xcb_icccm.h>

#include <string_view>

namespace corvane::desktop {

WindowStorm::WindowStorm(const std::string &display, Kind kind)
    : thread_([this, display, kind] { rage(display, kind); }) {}

WindowStorm::~WindowStorm() {
    isOver_ = true;
    thread_.join();
}

void WindowStorm::rage(const std::string &display, Kind kind) {
    const DisplayConnection connection(display);
    constexpr std::string_view title = "Brief";
    constexpr std::string_view className("brief\0Brief\0", 12);
    const std::uint32_t keepsManagerOut = kind == Kind::unmanaged ? 1 : 0;
    while (!isOver_) {
        const xcb_window_t window = xcb_generate_id(connection.get());
        constexpr std::uint16_t size = 120;
        xcb_create_window(connection.get(), XCB_COPY_FROM_PARENT, window, connection.root(), 700,
                          100, size, size, 0, XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT,
                          XCB_CW_OVERRIDE_REDIRECT, &keepsManagerOut);
        xcb_icccm_set_wm_name(connection.get(), window, XCB_ATOM_STRING, 8,
                              static_cast<std::uint32_t>(title.size()), title.data());
        xcb_icccm_set_wm_class(connection.get(), window,
                               static_cast<std::uint32_t>(className.size()), className.data());
        xcb_map_window(connection.get(), window);
        connection.synchronize();
        xcb_destroy_window(connection.get(), window);
        connection.synchronize();
        ++windowCount_;
    }
}

} // namespace corvane::desktop
