#include "platform/x11/overlay/OverlaySurface.h"

#include <xcb/shape.h>
#include <xcb/xcb_cursor.h>
#include <xcb/xfixes.h>

#include <array>
#include <memory>
#include <string_view>

namespace corvane::x11 {

namespace {

using namespace std::string_view_literals;

struct FreeCursorContext {
    void operator()(xcb_cursor_context_t *context) const { xcb_cursor_context_free(context); }
};

/// The user's own crosshair; none where there is not even the server's.
xcb_cursor_t crosshairCursor(const XcbConnection &connection) {
    xcb_cursor_context_t *made = nullptr;
    auto *screen = const_cast<xcb_screen_t *>(&connection.screen()); // NOLINT: reads it only
    if (xcb_cursor_context_new(connection.get(), screen, &made) < 0) {
        return XCB_CURSOR_NONE;
    }
    const std::unique_ptr<xcb_cursor_context_t, FreeCursorContext> context(made);
    return xcb_cursor_load_cursor(context.get(), "crosshair");
}

xcb_rectangle_t serverRectangle(const QRect &rectangle) {
    return {static_cast<std::int16_t>(rectangle.x()), static_cast<std::int16_t>(rectangle.y()),
            static_cast<std::uint16_t>(rectangle.width()),
            static_cast<std::uint16_t>(rectangle.height())};
}

} // namespace

OverlayHints::OverlayHints(const XcbConnection &connection)
    : type(connection.atom("_NET_WM_WINDOW_TYPE")),
      dragged(connection.atom("_NET_WM_WINDOW_TYPE_DND")),
      shadow(connection.atom("_COMPTON_SHADOW")) {}

OverlaySurface::OverlaySurface(const OverlayVisual &visual, const OverlayHints &hints,
                               const Kind &kind)
    : visual_(visual),
      kind_(kind),
      window_(xcb_generate_id(visual.connection().get())) {
    create();
    describe(hints);
    if (kind.ignoresMouseEvents) {
        passMouseEventsThrough();
    }
}

OverlaySurface::~OverlaySurface() { xcb_destroy_window(visual_.connection().get(), window_); }

void OverlaySurface::create() {
    const XcbConnection &connection = visual_.connection();
    const xcb_cursor_t cursor = kind_.cursor == Cursor::crosshair ? crosshairCursor(connection) : 0;
    constexpr std::uint32_t input = XCB_EVENT_MASK_BUTTON_PRESS | XCB_EVENT_MASK_BUTTON_RELEASE |
                                    XCB_EVENT_MASK_BUTTON_1_MOTION | XCB_EVENT_MASK_KEY_PRESS;
    const std::array<std::uint32_t, 6> values{
        0, 0, 1, kind_.ignoresMouseEvents ? 0 : input, visual_.colourMap(), cursor};
    xcb_create_window(connection.get(), visual_.depth(), window_, connection.root(), 0, 0, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, visual_.id(),
                      XCB_CW_BACK_PIXEL | XCB_CW_BORDER_PIXEL | XCB_CW_OVERRIDE_REDIRECT |
                          XCB_CW_EVENT_MASK | XCB_CW_COLORMAP | XCB_CW_CURSOR,
                      values.data());
    if (cursor != XCB_CURSOR_NONE) {
        xcb_free_cursor(connection.get(), cursor);
    }
}

void OverlaySurface::describe(const OverlayHints &hints) const {
    xcb_connection_t *const connection = visual_.connection().get();
    constexpr auto instanceAndClass = "corvane\0Corvane\0"sv;
    constexpr std::uint32_t none = 0;
    xcb_change_property(connection, XCB_PROP_MODE_REPLACE, window_, XCB_ATOM_WM_CLASS,
                        XCB_ATOM_STRING, 8, instanceAndClass.size(), instanceAndClass.data());
    xcb_change_property(connection, XCB_PROP_MODE_REPLACE, window_, hints.type, XCB_ATOM_ATOM, 32,
                        1, &hints.dragged);
    xcb_change_property(connection, XCB_PROP_MODE_REPLACE, window_, hints.shadow, XCB_ATOM_CARDINAL,
                        32, 1, &none);
}

void OverlaySurface::passMouseEventsThrough() const {
    xcb_connection_t *const connection = visual_.connection().get();
    const xcb_xfixes_region_t nothing = xcb_generate_id(connection);
    xcb_xfixes_create_region(connection, nothing, 0, nullptr);
    xcb_xfixes_set_window_shape_region(connection, window_, XCB_SHAPE_SK_INPUT, 0, 0, nothing);
    xcb_xfixes_destroy_region(connection, nothing);
}

void OverlaySurface::place(const QRect &frame) {
    const std::array<std::uint32_t, 4> values{
        static_cast<std::uint32_t>(frame.x()), static_cast<std::uint32_t>(frame.y()),
        static_cast<std::uint32_t>(frame.width()), static_cast<std::uint32_t>(frame.height())};
    xcb_configure_window(visual_.connection().get(), window_,
                         XCB_CONFIG_WINDOW_X | XCB_CONFIG_WINDOW_Y | XCB_CONFIG_WINDOW_WIDTH |
                             XCB_CONFIG_WINDOW_HEIGHT,
                         values.data());
}

void OverlaySurface::map() { xcb_map_window(visual_.connection().get(), window_); }

void OverlaySurface::unmap() { xcb_unmap_window(visual_.connection().get(), window_); }

void OverlaySurface::show(const OverlayImage &picture) {
    // By whatever a window grows the server paints its background by itself. Most pictures of an
    // animation that is cut out need no more than their outline.
    const auto &areas = picture.areas();
    const bool showsNothing = areas && areas->empty();
    const bool isPainted = picture.colour() && picture.colour() == colour_;
    if (showsNothing || isPainted) {
        limitTo(picture);
        return;
    }
    constexpr std::uint16_t everything = 0;
    setBackground(picture);
    limitTo(picture);
    xcb_clear_area(visual_.connection().get(), 0, window_, 0, 0, everything, everything);
}

void OverlaySurface::show(const OverlayImage &picture, const QRegion &changed) {
    setBackground(picture);
    limitTo(picture);
    for (const QRect &rectangle : changed) {
        const xcb_rectangle_t area = serverRectangle(rectangle);
        xcb_clear_area(visual_.connection().get(), 0, window_, area.x, area.y, area.width,
                       area.height);
    }
}

/// The picture becomes the window's background, which the server repaints by itself.
void OverlaySurface::setBackground(const OverlayImage &picture) {
    xcb_connection_t *const connection = visual_.connection().get();
    constexpr QRgb transparent = 0;
    colour_ = picture.colour();
    if (picture.pixmap() != XCB_PIXMAP_NONE) {
        const std::uint32_t pixmap = picture.pixmap();
        xcb_change_window_attributes(connection, window_, XCB_CW_BACK_PIXMAP, &pixmap);
    } else {
        const std::uint32_t pixel = colour_.value_or(transparent);
        xcb_change_window_attributes(connection, window_, XCB_CW_BACK_PIXEL, &pixel);
    }
}

void OverlaySurface::limitTo(const OverlayImage &picture) {
    xcb_connection_t *const connection = visual_.connection().get();
    const auto &areas = picture.areas();
    if (areas) {
        xcb_shape_rectangles(connection, XCB_SHAPE_SO_SET, XCB_SHAPE_SK_BOUNDING,
                             XCB_CLIP_ORDERING_YX_BANDED, window_, 0, 0,
                             static_cast<std::uint32_t>(areas->size()), areas->data());
    } else if (isLimited_) {
        xcb_shape_mask(connection, XCB_SHAPE_SO_SET, XCB_SHAPE_SK_BOUNDING, window_, 0, 0,
                       XCB_PIXMAP_NONE);
    }
    isLimited_ = areas.has_value();
}

} // namespace corvane::x11
