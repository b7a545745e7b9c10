#include "platform/x11/screens/Screens.h"

#include <xcb/randr.h>

#include <algorithm>
#include <tuple>

namespace corvane::x11 {

namespace {

bool reportsMonitors(const XcbConnection &connection) {
    const auto version = reply<xcb_randr_query_version_reply>(
        connection.get(), xcb_randr_query_version(connection.get(), 1, 5));
    return version &&
           std::tie(version->major_version, version->minor_version) >= std::make_tuple(1U, 5U);
}

std::vector<Rectangle> primaryFirst(const xcb_randr_get_monitors_reply_t &reply) {
    std::vector<Rectangle> frames;
    auto monitor = xcb_randr_get_monitors_monitors_iterator(&reply);
    for (; monitor.rem > 0; xcb_randr_monitor_info_next(&monitor)) {
        const auto &info = *monitor.data;
        const Rectangle frame{double(info.x), double(info.y), double(info.width),
                              double(info.height)};
        if (std::ranges::find(frames, frame) == frames.end()) {
            frames.insert(info.primary != 0 ? frames.begin() : frames.end(), frame);
        }
    }
    return frames;
}

} // namespace

Screens::Screens(XcbEvents &events) : connection_(events.connection()) {
    if (const auto *extension = connection_.extension(xcb_randr_id)) {
        hasMonitors_ = reportsMonitors(connection_);
        follow(events, extension->first_event);
    }
    read();
}

void Screens::follow(XcbEvents &events, std::uint8_t firstEvent) {
    xcb_randr_select_input(connection_.get(), connection_.root(),
                           XCB_RANDR_NOTIFY_MASK_SCREEN_CHANGE | XCB_RANDR_NOTIFY_MASK_CRTC_CHANGE |
                               XCB_RANDR_NOTIFY_MASK_OUTPUT_CHANGE);
    rootEvents_ = events.masks().select(connection_.root(), XCB_EVENT_MASK_STRUCTURE_NOTIFY);
    subscription_ = events.subscribe([this, firstEvent](const xcb_generic_event_t &event) {
        const int type = XcbEvents::typeOf(event) - firstEvent;
        if (type == XCB_RANDR_SCREEN_CHANGE_NOTIFY || type == XCB_RANDR_NOTIFY ||
            isRootChange(event)) {
            read();
        }
    });
}

/// The only event for monitors that were set up by hand (xrandr --setmonitor).
bool Screens::isRootChange(const xcb_generic_event_t &event) const {
    return XcbEvents::typeOf(event) == XCB_CONFIGURE_NOTIFY &&
           reinterpret_cast<const xcb_configure_notify_event_t &>(event).window ==
               connection_.root();
}

void Screens::read() {
    desktop_ = readDesktop();
    const std::vector<Rectangle> frames = hasMonitors_ ? readMonitors() : std::vector{desktop_};
    screens_.clear();
    for (const Rectangle &frame : frames) {
        screens_.push_back({flipped(frame, frames.front().height)});
    }
}

Rectangle Screens::readDesktop() const {
    const auto root = reply<xcb_get_geometry_reply>(
        connection_.get(), xcb_get_geometry(connection_.get(), connection_.root()));
    return root ? Rectangle{0, 0, double(root->width), double(root->height)} : Rectangle{};
}

std::vector<Rectangle> Screens::readMonitors() const {
    constexpr std::uint8_t onlyActive = 1;
    const auto monitors = reply<xcb_randr_get_monitors_reply>(
        connection_.get(),
        xcb_randr_get_monitors(connection_.get(), connection_.root(), onlyActive));
    return monitors ? primaryFirst(*monitors) : std::vector<Rectangle>{};
}

std::optional<double> Screens::primaryHeight() const {
    return screens_.empty() ? std::nullopt : std::optional(screens_.front().frame.height);
}

Rectangle Screens::toRoot(const Rectangle &rectangle) const {
    const auto height = primaryHeight();
    return height ? flipped(rectangle, *height) : rectangle;
}

Point Screens::toScreenSpace(Point point) const {
    const auto height = primaryHeight();
    return height ? flipped(point, *height) : point;
}

} // namespace corvane::x11
