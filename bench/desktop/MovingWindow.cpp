#include "MovingWindow.h"

#include "harness/probes/WindowTree.h"
#include "platform/x11/connection/Xcb.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <iterator>
#include <ranges>
#include <stdexcept>

#include <poll.h>

namespace corvane::bench {

namespace {

using desktop::DisplayConnection;
using x11::XcbReply;

/// The child of the root window that holds the window.
xcb_window_t frameOf(const DisplayConnection &connection, xcb_window_t window) {
    while (true) {
        const XcbReply<xcb_query_tree_reply_t> tree(xcb_query_tree_reply(
            connection.get(), xcb_query_tree(connection.get(), window), nullptr));
        if (!tree) {
            throw std::runtime_error("The window is gone");
        }
        if (tree->parent == connection.root()) {
            return window;
        }
        window = tree->parent;
    }
}

/// The outline is as wide as the zone; its badge makes it taller.
desktop::SeenWindow outlineOf(const DisplayConnection &connection, const desktop::Area &zone) {
    for (const desktop::SeenWindow &window : desktop::corvaneWindows(connection)) {
        if (window.isOverride && window.area.width == zone.width) {
            return window;
        }
    }
    throw std::runtime_error("The zone has no outline");
}

int leftOf(const DisplayConnection &connection, xcb_window_t window) {
    const XcbReply<xcb_get_geometry_reply_t> geometry(xcb_get_geometry_reply(
        connection.get(), xcb_get_geometry(connection.get(), window), nullptr));
    return geometry ? geometry->x : 0;
}

} // namespace

MovingWindow::MovingWindow(const desktop::VirtualDesktop &desktop, xcb_window_t window,
                           const desktop::Area &zone)
    : connection_(desktop.display()),
      window_(window),
      frame_(frameOf(connection_, window)),
      outline_(outlineOf(connection_, zone).id),
      offset_(leftOf(connection_, outline_) - leftOf(connection_, frame_)) {
    const std::uint32_t mask = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
    xcb_change_window_attributes(connection_.get(), connection_.root(), XCB_CW_EVENT_MASK, &mask);
    connection_.synchronize();
}

void MovingWindow::moveFor(std::chrono::seconds time) {
    constexpr std::chrono::milliseconds pause{10};
    const auto end = Clock::now() + time;
    for (auto next = Clock::now(); next < end; next += pause) {
        step();
        listenUntil(next + pause);
    }
}

void MovingWindow::step() {
    constexpr int reach = 100;
    constexpr int leftmost = 50;
    constexpr int stride = 3;
    const int phase = ++steps_ % (2 * reach);
    const auto x = static_cast<std::uint32_t>(leftmost + stride * std::abs(phase - reach));
    xcb_configure_window(connection_.get(), window_, XCB_CONFIG_WINDOW_X, &x);
    xcb_flush(connection_.get());
}

void MovingWindow::listenUntil(Clock::time_point time) {
    pollfd source{xcb_get_file_descriptor(connection_.get()), POLLIN, 0};
    while (true) {
        while (const XcbReply<xcb_generic_event_t> event{xcb_poll_for_event(connection_.get())}) {
            if (event->response_type == XCB_CONFIGURE_NOTIFY) {
                handle(reinterpret_cast<const xcb_configure_notify_event_t &>(*event));
            }
        }
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(time - Clock::now()).count();
        if (left <= 0) {
            return;
        }
        poll(&source, 1, static_cast<int>(left));
    }
}

void MovingWindow::handle(const xcb_configure_notify_event_t &event) {
    if (event.window == frame_ && (places_.empty() || places_.back().x != event.x)) {
        places_.push_back({event.x, Clock::now()});
    } else if (event.window == outline_) {
        outlineMoved(event.x - offset_);
    }
}

void MovingWindow::outlineMoved(int frameX) {
    const auto backwards = std::views::reverse(places_);
    const auto last = std::ranges::find(backwards, frameX, &Place::x);
    if (last == backwards.end()) {
        return;
    }
    const auto now = Clock::now();
    for (auto place = places_.begin(); place != last.base(); ++place) {
        lags_.add(std::chrono::duration<double, std::milli>(now - place->reached).count());
    }
    places_.erase(places_.begin(), last.base());
}

} // namespace corvane::bench
