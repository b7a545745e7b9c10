#include "platform/x11/overlay/OverlayVisual.h"

#include <optional>

namespace corvane::x11 {

namespace {

bool hasPlainChannels(const xcb_visualtype_t &visual) {
    return visual._class == XCB_VISUAL_CLASS_TRUE_COLOR && visual.red_mask == 0xFF0000 &&
           visual.green_mask == 0xFF00 && visual.blue_mask == 0xFF;
}

std::optional<xcb_visualid_t> visualOfDepth(const xcb_screen_t &screen, std::uint8_t depth) {
    auto depths = xcb_screen_allowed_depths_iterator(&screen);
    for (; depths.rem > 0; xcb_depth_next(&depths)) {
        auto visuals = xcb_depth_visuals_iterator(depths.data);
        for (; depths.data->depth == depth && visuals.rem > 0; xcb_visualtype_next(&visuals)) {
            if (hasPlainChannels(*visuals.data)) {
                return visuals.data->visual_id;
            }
        }
    }
    return std::nullopt;
}

} // namespace

std::unique_ptr<OverlayVisual> OverlayVisual::find(const XcbConnection &connection) {
    for (const std::uint8_t depth : {std::uint8_t{32}, std::uint8_t{24}}) {
        if (const auto id = visualOfDepth(connection.screen(), depth)) {
            return std::unique_ptr<OverlayVisual>(
                new OverlayVisual(connection, *id, depth)); // NOLINT
        }
    }
    return nullptr;
}

OverlayVisual::OverlayVisual(const XcbConnection &connection, xcb_visualid_t id, std::uint8_t depth)
    : connection_(connection),
      id_(id),
      depth_(depth),
      colourMap_(xcb_generate_id(connection.get())),
      graphicsContext_(xcb_generate_id(connection.get())) {
    xcb_create_colormap(connection.get(), XCB_COLORMAP_ALLOC_NONE, colourMap_, connection.root(),
                        id);
    // A graphics context fits every drawable of the depth it was made with.
    const xcb_pixmap_t sample = xcb_generate_id(connection.get());
    xcb_create_pixmap(connection.get(), depth, sample, connection.root(), 1, 1);
    xcb_create_gc(connection.get(), graphicsContext_, sample, 0, nullptr);
    xcb_free_pixmap(connection.get(), sample);
}

OverlayVisual::~OverlayVisual() {
    xcb_free_gc(connection_.get(), graphicsContext_);
    xcb_free_colormap(connection_.get(), colourMap_);
}

} // namespace corvane::x11
