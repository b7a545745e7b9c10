#include "platform/x11/overlay/OverlayStack.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdint>

namespace corvane::x11 {

namespace {

/// Limits the wake-ups while a window is dragged, which changes a hundred times a second, and the
/// load on the server where another program raises its own window above everything again and again.
constexpr std::chrono::milliseconds debounceTime(100);

} // namespace

OverlayStack::EventMaskGuard::EventMaskGuard(OverlayStack &stack) : stack_(stack) {
    ++stack_.guards_;
    stack_.updateEventMask();
}

OverlayStack::EventMaskGuard::~EventMaskGuard() {
    --stack_.guards_;
    stack_.updateEventMask();
}

OverlayStack::OverlayStack(XcbEvents &events)
    : events_(events),
      subscription_(events.subscribe([this](const xcb_generic_event_t &event) { handle(event); })) {
    debounceTimer_.setSingleShot(true);
    QObject::connect(&debounceTimer_, &QTimer::timeout, [this] {
        updateEventMask();
        restack();
    });
}

void OverlayStack::insert(xcb_window_t window, int level, bool staysOnTop) {
    erase(window);
    const auto place =
        std::ranges::find_if(entries_, [level](const Entry &entry) { return entry.level > level; });
    stackBelowNext(entries_.insert(place, Entry{window, level, staysOnTop}));
    updateEventMask();
}

void OverlayStack::remove(xcb_window_t window) {
    erase(window);
    updateEventMask();
}

void OverlayStack::replace(xcb_window_t window, xcb_window_t successor) {
    const auto entry = std::ranges::find(entries_, window, &Entry::window);
    if (entry != entries_.end()) {
        entry->window = successor;
        stackBelowNext(entry);
    }
}

bool OverlayStack::contains(xcb_window_t window) const {
    return std::ranges::find(entries_, window, &Entry::window) != entries_.end();
}

void OverlayStack::erase(xcb_window_t window) {
    std::erase_if(entries_, [window](const Entry &entry) { return entry.window == window; });
}

void OverlayStack::updateEventMask() {
    const bool isWanted = guards_ == 0 && !debounceTimer_.isActive() &&
                          std::ranges::any_of(entries_, &Entry::staysOnTop);
    if (!isWanted) {
        rootEvents_.reset();
    } else if (!rootEvents_) {
        rootEvents_.emplace(events_.masks().select(events_.connection().root(),
                                                   XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY));
    }
}

/// Directly below the next higher overlay, the highest above everything.
void OverlayStack::stackBelowNext(Entries::const_iterator entry) const {
    xcb_connection_t *const connection = events_.connection().get();
    const auto next = entry + 1;
    if (next == entries_.end()) {
        constexpr std::uint32_t mode = XCB_STACK_MODE_ABOVE;
        xcb_configure_window(connection, entry->window, XCB_CONFIG_WINDOW_STACK_MODE, &mode);
        return;
    }
    const std::array<std::uint32_t, 2> values{next->window, XCB_STACK_MODE_BELOW};
    xcb_configure_window(connection, entry->window,
                         XCB_CONFIG_WINDOW_SIBLING | XCB_CONFIG_WINDOW_STACK_MODE, values.data());
}

void OverlayStack::handle(const xcb_generic_event_t &event) {
    if (!rootEvents_) {
        return;
    }
    const xcb_window_t root = events_.connection().root();
    const int type = XcbEvents::typeOf(event);
    if (type == XCB_CONFIGURE_NOTIFY) {
        const auto &change = reinterpret_cast<const xcb_configure_notify_event_t &>(event);
        if (change.event == root && !contains(change.window)) {
            if (contains(change.above_sibling)) {
                restack();
            }
            debounce();
        }
    } else if (type == XCB_MAP_NOTIFY) {
        const auto &shown = reinterpret_cast<const xcb_map_notify_event_t &>(event);
        if (shown.event == root && !contains(shown.window)) {
            restack();
            debounce();
        }
    }
}

void OverlayStack::restack() {
    const EventMaskGuard guard(*this);
    for (auto entry = entries_.cend(); entry != entries_.cbegin();) {
        stackBelowNext(--entry);
    }
}

void OverlayStack::debounce() {
    debounceTimer_.start(debounceTime);
    updateEventMask();
}

} // namespace corvane::x11
