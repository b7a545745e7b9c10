#include "platform/linux/FrameChain.h"

#include <algorithm>
#include <utility>

namespace corvane::x11 {

/// Each is watched before it is asked for: what changes after the answer is told.
FrameChain::FrameChain(const XcbConnection &connection, EventMasks &masks, xcb_window_t window) {
    xcb_connection_t *const server = connection.get();
    while (!isComplete_) {
        Link link{.window = window,
                  .events = masks.select(window, XCB_EVENT_MASK_STRUCTURE_NOTIFY)};
        const auto treeCookie = xcb_query_tree(server, window);
        const auto geometryCookie = xcb_get_geometry(server, window);
        const XcbReply<xcb_query_tree_reply_t> tree(
            xcb_query_tree_reply(server, treeCookie, nullptr));
        const XcbReply<xcb_get_geometry_reply_t> geometry(
            xcb_get_geometry_reply(server, geometryCookie, nullptr));
        if (!tree || !geometry) {
            return;
        }
        link.x = geometry->x;
        link.y = geometry->y;
        link.width = geometry->width;
        link.height = geometry->height;
        link.border = geometry->border_width;
        links_.push_back(std::move(link));
        isComplete_ = tree->parent == XCB_WINDOW_NONE || tree->parent == tree->root;
        window = tree->parent;
    }
}

bool FrameChain::contains(xcb_window_t window) const {
    return std::ranges::find(links_, window, &Link::window) != links_.end();
}

std::vector<FrameChain::Link>::iterator FrameChain::find(xcb_window_t window) {
    return std::ranges::find(links_, window, &Link::window);
}

bool FrameChain::takeNote(const xcb_configure_notify_event_t &event) {
    const auto link = find(event.window);
    if (link == links_.end()) {
        return false;
    }
    link->x = event.x;
    link->y = event.y;
    const bool isAsBefore = link->width == event.width && link->height == event.height &&
                            link->border == event.border_width;
    link->width = event.width;
    link->height = event.height;
    link->border = event.border_width;
    return isComplete_ && isAsBefore;
}

void FrameChain::takeNote(const xcb_gravity_notify_event_t &event) {
    if (const auto link = find(event.window); link != links_.end()) {
        link->x = event.x;
        link->y = event.y;
    }
}

std::optional<Point> FrameChain::origin() const {
    if (!isComplete_) {
        return std::nullopt;
    }
    Point origin;
    for (const Link &link : links_) {
        origin.x += link.x + link.border;
        origin.y += link.y + link.border;
    }
    return origin;
}

} // namespace corvane::x11
