#include "platform/x11/overlay/OverlaySurface.h"

#include <xcb/shape.h>
#include <xcb/xcb_cursor.h>
#include <xcb/xfixes.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdint>
#include <string_view>
#include <utility>

namespace corvane::x11 {

namespace {

using namespace std::string_view_literals;

struct FreeCursorContext {
    void operator()(xcb_cursor_context_t *context) const { xcb_cursor_context_free(context); }
};

/// The crosshair of the user's cursor theme; none where the server has none either.
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

OverlaySurface::OverlaySurface(const OverlayVisual &visual, OverlayStack &stack, const Kind &kind)
    : visual_(visual),
      stack_(stack),
      kind_(kind) {
    create();
}

OverlaySurface::~OverlaySurface() {
    destroyFormer();
    xcb_destroy_window(visual_.connection().get(), window_);
}

void OverlaySurface::create() {
    const XcbConnection &connection = visual_.connection();
    window_ = xcb_generate_id(connection.get());
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
    setProperties();
    if (kind_.ignoresMouseEvents) {
        letMouseEventsThrough();
    }
}

void OverlaySurface::replace() {
    constexpr std::chrono::milliseconds untilShown(50);
    const OverlayStack::EventMaskGuard guard(stack_);
    destroyFormer();
    former_ = window_;
    create();
    setBackground();
    configure();
    stack_.replace(former_, window_);
    map();
    if (!formerTimer_) {
        formerTimer_ = std::make_unique<QTimer>();
        formerTimer_->setSingleShot(true);
        QObject::connect(formerTimer_.get(), &QTimer::timeout, [this] {
            destroyFormer();
            visual_.connection().flush();
        });
    }
    formerTimer_->start(untilShown);
}

void OverlaySurface::destroyFormer() {
    if (former_ != XCB_WINDOW_NONE) {
        xcb_destroy_window(visual_.connection().get(), std::exchange(former_, XCB_WINDOW_NONE));
    }
}

/// Keeps compositing managers from adding a shadow or an animation: the type of a dragged image
/// is the one that all of them leave alone.
void OverlaySurface::setProperties() const {
    xcb_connection_t *const connection = visual_.connection().get();
    const Atoms &atoms = visual_.connection().atoms();
    constexpr auto instanceAndClass = "corvane\0Corvane\0"sv;
    constexpr std::uint32_t none = 0;
    xcb_change_property(connection, XCB_PROP_MODE_REPLACE, window_, XCB_ATOM_WM_CLASS,
                        XCB_ATOM_STRING, 8, instanceAndClass.size(), instanceAndClass.data());
    xcb_change_property(connection, XCB_PROP_MODE_REPLACE, window_, atoms.type, XCB_ATOM_ATOM, 32,
                        1, &atoms.typeDragged);
    xcb_change_property(connection, XCB_PROP_MODE_REPLACE, window_, atoms.compositorShadow,
                        XCB_ATOM_CARDINAL, 32, 1, &none);
}

void OverlaySurface::letMouseEventsThrough() const {
    xcb_connection_t *const connection = visual_.connection().get();
    const xcb_xfixes_region_t nothing = xcb_generate_id(connection);
    xcb_xfixes_create_region(connection, nothing, 0, nullptr);
    xcb_xfixes_set_window_shape_region(connection, window_, XCB_SHAPE_SK_INPUT, 0, 0, nothing);
    xcb_xfixes_destroy_region(connection, nothing);
}

void OverlaySurface::show(const QRect &frame, int level, bool staysOnTop) {
    const OverlayStack::EventMaskGuard guard(stack_);
    stack_.insert(window_, level, staysOnTop);
    frame_ = frame;
    isShown_ = true;
    configure();
    map();
}

void OverlaySurface::raise(int level, bool staysOnTop) {
    const OverlayStack::EventMaskGuard guard(stack_);
    stack_.insert(window_, level, staysOnTop);
}

void OverlaySurface::hide() {
    const OverlayStack::EventMaskGuard guard(stack_);
    stack_.remove(window_);
    isShown_ = false;
    destroyFormer();
    unmap();
}

void OverlaySurface::place(const QRect &frame) {
    frame_ = frame;
    if (isShown_ && kind_.isReplaced) {
        replace();
        return;
    }
    const OverlayStack::EventMaskGuard guard(stack_);
    configure();
}

void OverlaySurface::unmap() { xcb_unmap_window(visual_.connection().get(), window_); }

void OverlaySurface::map() { xcb_map_window(visual_.connection().get(), window_); }

void OverlaySurface::configure() const {
    const std::array<std::uint32_t, 4> values{
        static_cast<std::uint32_t>(frame_.x()), static_cast<std::uint32_t>(frame_.y()),
        static_cast<std::uint32_t>(frame_.width()), static_cast<std::uint32_t>(frame_.height())};
    xcb_configure_window(visual_.connection().get(), window_,
                         XCB_CONFIG_WINDOW_X | XCB_CONFIG_WINDOW_Y | XCB_CONFIG_WINDOW_WIDTH |
                             XCB_CONFIG_WINDOW_HEIGHT,
                         values.data());
}

void OverlaySurface::paint(const OverlayImage &image) {
    if (isShown_ && kind_.isReplaced) {
        keepBackground(image);
        replace();
        return;
    }
    // The server paints the background of areas that a larger shape uncovers, so most frames of an
    // animation that is cut out send their shape only.
    const auto &shape = image.shape();
    const bool showsNothing = shape && shape->empty();
    const bool hasColour = image.colour() && image.colour() == colour_;
    if (showsNothing || hasColour) {
        setShape(image);
        return;
    }
    constexpr std::uint16_t everything = 0;
    keepBackground(image);
    setBackground();
    setShape(image);
    xcb_clear_area(visual_.connection().get(), 0, window_, 0, 0, everything, everything);
}

void OverlaySurface::paint(const OverlayImage &image, const QRegion &changed) {
    if (isShown_ && kind_.isReplaced) {
        paint(image);
        return;
    }
    keepBackground(image);
    setBackground();
    setShape(image);
    for (const QRect &rectangle : changed) {
        const xcb_rectangle_t area = serverRectangle(rectangle);
        xcb_clear_area(visual_.connection().get(), 0, window_, area.x, area.y, area.width,
                       area.height);
    }
}

void OverlaySurface::keepBackground(const OverlayImage &image) {
    colour_ = image.colour();
    pixmap_ = image.pixmap();
}

/// The image becomes the window's background, which the server repaints by itself.
void OverlaySurface::setBackground() const {
    xcb_connection_t *const connection = visual_.connection().get();
    constexpr QRgb transparent = 0;
    if (pixmap_ != XCB_PIXMAP_NONE) {
        xcb_change_window_attributes(connection, window_, XCB_CW_BACK_PIXMAP, &pixmap_);
    } else {
        const std::uint32_t pixel = colour_.value_or(transparent);
        xcb_change_window_attributes(connection, window_, XCB_CW_BACK_PIXEL, &pixel);
    }
}

void OverlaySurface::setShape(const OverlayImage &image) {
    xcb_connection_t *const connection = visual_.connection().get();
    const auto &shape = image.shape();
    if (shape) {
        xcb_shape_rectangles(connection, XCB_SHAPE_SO_SET, XCB_SHAPE_SK_BOUNDING,
                             XCB_CLIP_ORDERING_YX_BANDED, window_, 0, 0,
                             static_cast<std::uint32_t>(shape->size()), shape->data());
    } else if (hasShape_) {
        xcb_shape_mask(connection, XCB_SHAPE_SO_SET, XCB_SHAPE_SK_BOUNDING, window_, 0, 0,
                       XCB_PIXMAP_NONE);
    }
    hasShape_ = shape.has_value();
}

OverlaySurfaces::OverlaySurfaces(const OverlayVisual &visual, XcbEvents &events)
    : visual_(visual),
      stack_(events) {}

OverlaySurfaces::Lease OverlaySurfaces::take(const OverlaySurface::Kind &kind) {
    const auto match =
        std::ranges::find_if(kept_, [&kind](const auto &kept) { return kept->kind() == kind; });
    if (match == kept_.end()) {
        auto surface = std::make_unique<OverlaySurface>(visual_, stack_, kind);
        return {surface.release(), GiveBack{this}};
    }
    std::unique_ptr<OverlaySurface> surface = std::move(*match);
    kept_.erase(match);
    return {surface.release(), GiveBack{this}};
}

void OverlaySurfaces::GiveBack::operator()(OverlaySurface *surface) const {
    constexpr std::size_t mostKept = 8;
    std::unique_ptr<OverlaySurface> hidden(surface);
    if (owner->kept_.size() < mostKept) {
        owner->kept_.push_back(std::move(hidden));
    }
}

} // namespace corvane::x11
