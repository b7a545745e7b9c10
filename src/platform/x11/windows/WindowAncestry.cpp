#include "platform/x11/windows/WindowAncestry.h"

#include "platform/x11/connection/XcbEvents.h"

#include <algorithm>
#include <utility>

namespace corvane::x11 {

/// Events are selected before the request, so that no change after the reply is missed.
WindowAncestry::WindowAncestry(const XcbConnection &connection, EventMasks &masks,
                               xcb_window_t window) {
    xcb_connection_t *const server = connection.get();
    while (!isComplete_) {
        Link link{.window = window,
                  .events = masks.select(window, XCB_EVENT_MASK_STRUCTURE_NOTIFY)};
        const auto treeCookie = xcb_query_tree(server, window);
        const auto geometryCookie = xcb_get_geometry(server, window);
        const auto tree = reply<xcb_query_tree_reply>(server, treeCookie);
        const auto geometry = reply<xcb_get_geometry_reply>(server, geometryCookie);
        if (!tree || !geometry) {
            return;
        }
        link.request = geometryCookie.sequence;
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

bool WindowAncestry::contains(xcb_window_t window) const {
    return std::ranges::find(links_, window, &Link::window) != links_.end();
}

bool WindowAncestry::update(const xcb_generic_event_t &event) {
    if (XcbEvents::typeOf(event) == XCB_GRAVITY_NOTIFY) {
        pushed(reinterpret_cast<const xcb_gravity_notify_event_t &>(event), event.full_sequence);
        return false;
    }
    return configured(reinterpret_cast<const xcb_configure_notify_event_t &>(event),
                      event.full_sequence) &&
           isComplete_;
}

/// Null for an unknown window, and for an event older than the reply that read the position.
WindowAncestry::Link *WindowAncestry::find(xcb_window_t window, std::uint32_t eventSequence) {
    const auto link = std::ranges::find(links_, window, &Link::window);
    if (link == links_.end()) {
        return nullptr;
    }
    // Sequence numbers wrap around.
    const bool isOlder = static_cast<std::int32_t>(eventSequence - link->request) < 0;
    return isOlder ? nullptr : &*link;
}

bool WindowAncestry::configured(const xcb_configure_notify_event_t &event, std::uint32_t sequence) {
    Link *const link = find(event.window, sequence);
    if (link == nullptr) {
        return true;
    }
    link->x = event.x;
    link->y = event.y;
    const bool isAsBefore = link->width == event.width && link->height == event.height &&
                            link->border == event.border_width;
    link->width = event.width;
    link->height = event.height;
    link->border = event.border_width;
    return isAsBefore;
}

void WindowAncestry::pushed(const xcb_gravity_notify_event_t &event, std::uint32_t sequence) {
    if (Link *const link = find(event.window, sequence)) {
        link->x = event.x;
        link->y = event.y;
    }
}

std::optional<Point> WindowAncestry::origin() const {
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
