#include "ProbeWindow.h"

#include "Screenshot.h"
#include "WaitUntil.h"

#include <algorithm>
#include <array>
#include <utility>

namespace corvane::desktop {

namespace {

constexpr std::uint16_t side = 4;

xcb_visualid_t visualWithAlpha(const xcb_screen_t &screen) {
    for (auto depth = xcb_screen_allowed_depths_iterator(&screen); depth.rem > 0;
         xcb_depth_next(&depth)) {
        if (depth.data->depth == 32 && depth.data->visuals_len > 0) {
            return xcb_depth_visuals(depth.data)->visual_id;
        }
    }
    return XCB_NONE;
}

} // namespace

ProbeWindow::ProbeWindow(const DisplayConnection &connection)
    : connection_(connection),
      id_(xcb_generate_id(connection.get())) {
    xcb_create_window(connection_.get(), XCB_COPY_FROM_PARENT, id_, connection_.root(), 0, 0, 1, 1,
                      0, XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
}

void ProbeWindow::close() {
    if (std::exchange(isOpen_, false)) {
        xcb_destroy_window(connection_.get(), id_);
        xcb_flush(connection_.get());
    }
}

bool ProbeWindow::isManaged() const {
    constexpr std::chrono::milliseconds moment{300};
    xcb_map_window(connection_.get(), id_);
    return waitUntil([this] { return isListed(); }, moment);
}

bool ProbeWindow::isListed() const {
    const auto windows = connection_.properties(connection_.root(), "_NET_CLIENT_LIST");
    return std::ranges::find(windows, id_) != windows.end();
}

TransparencyProbe::TransparencyProbe(const DisplayConnection &connection)
    : connection_(connection),
      white_(xcb_generate_id(connection.get())),
      colours_(xcb_generate_id(connection.get())),
      transparent_(xcb_generate_id(connection.get())) {
    const xcb_screen_t &screen = connection.screen();
    const std::array<std::uint32_t, 2> white = {screen.white_pixel, 1};
    xcb_create_window(connection.get(), XCB_COPY_FROM_PARENT, white_, connection.root(), 0, 0, side,
                      side, 0, XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT,
                      XCB_CW_BACK_PIXEL | XCB_CW_OVERRIDE_REDIRECT, white.data());
    const xcb_visualid_t visual = visualWithAlpha(screen);
    xcb_create_colormap(connection.get(), XCB_COLORMAP_ALLOC_NONE, colours_, connection.root(),
                        visual);
    const std::array<std::uint32_t, 4> nothing = {0, 0, 1, colours_};
    xcb_create_window(connection.get(), 32, transparent_, connection.root(), 0, 0, side, side, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, visual,
                      XCB_CW_BACK_PIXEL | XCB_CW_BORDER_PIXEL | XCB_CW_OVERRIDE_REDIRECT |
                          XCB_CW_COLORMAP,
                      nothing.data());
    xcb_map_window(connection.get(), white_);
    xcb_map_window(connection.get(), transparent_);
    connection.synchronize();
}

TransparencyProbe::~TransparencyProbe() {
    xcb_destroy_window(connection_.get(), transparent_);
    xcb_destroy_window(connection_.get(), white_);
    xcb_free_colormap(connection_.get(), colours_);
    connection_.synchronize();
}

bool TransparencyProbe::isTransparent() const {
    return Screenshot(connection_).at({side / 2, side / 2}) == Pixel{255, 255, 255};
}

} // namespace corvane::desktop
