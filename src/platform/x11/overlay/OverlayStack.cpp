#include "platform/x11/overlay/OverlayStack.h"

#include <algorithm>
#include <array>
#include <chrono>

namespace corvane::x11 {

namespace {

/// Another program may insist on being above everything too, and neither side must keep the server
/// busy with that. A window that is dragged moves a hundred times a second, which is nothing to be
/// woken for.
constexpr std::chrono::milliseconds restTime(100);

} // namespace

OverlayStack::Silence::Silence(OverlayStack &stack) : stack_(stack) {
    ++stack_.silences_;
    stack_.followRoot();
}

OverlayStack::Silence::~Silence() {
    --stack_.silences_;
    stack_.followRoot();
}

OverlayStack::OverlayStack(XcbEvents &events)
    : events_(events),
      subscription_(events.subscribe([this](const xcb_generic_event_t &event) { handle(event); })) {
    restTimer_.setSingleShot(true);
    QObject::connect(&restTimer_, &QTimer::timeout, [this] { listenAgain(); });
}

void OverlayStack::insert(xcb_window_t window, int level, bool stays) {
    std::erase_if(entries_, [window](const Entry &entry) { return entry.window == window; });
    const auto place =
        std::ranges::find_if(entries_, [level](const Entry &entry) { return entry.level > level; });
    putInPlace(entries_.insert(place, Entry{window, level, stays}));
    followRoot();
}

void OverlayStack::remove(xcb_window_t window) {
    std::erase_if(entries_, [window](const Entry &entry) { return entry.window == window; });
    followRoot();
}

void OverlayStack::followRoot() {
    if (silences_ > 0 || restTimer_.isActive() || std::ranges::none_of(entries_, &Entry::stays)) {
        rootEvents_.reset();
    } else if (!rootEvents_) {
        rootEvents_.emplace(events_.masks().select(events_.connection().root(),
                                                   XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY));
    }
}

OverlayStack::Entries::iterator OverlayStack::find(xcb_window_t window) {
    return std::ranges::find(entries_, window, &Entry::window);
}

/// Directly below the next higher overlay, the highest above everything.
void OverlayStack::putInPlace(Entries::const_iterator entry) const {
    xcb_connection_t *const connection = events_.connection().get();
    const auto above = entry + 1;
    if (above == entries_.end()) {
        constexpr std::uint32_t mode = XCB_STACK_MODE_ABOVE;
        xcb_configure_window(connection, entry->window, XCB_CONFIG_WINDOW_STACK_MODE, &mode);
        return;
    }
    const std::array<std::uint32_t, 2> values{above->window, XCB_STACK_MODE_BELOW};
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
            rest();
        }
    } else if (type == XCB_MAP_NOTIFY) {
        const auto &shown = reinterpret_cast<const xcb_map_notify_event_t &>(event);
        if (shown.event == root && !contains(shown.window)) {
            restack();
            rest();
        }
    }
}

void OverlayStack::restack() {
    const Silence silence(*this);
    for (auto entry = entries_.cend(); entry != entries_.cbegin();) {
        putInPlace(--entry);
    }
}

void OverlayStack::rest() {
    restTimer_.start(restTime);
    followRoot();
}

/// Whatever has happened meanwhile is made good at once.
void OverlayStack::listenAgain() {
    followRoot();
    restack();
}

} // namespace corvane::x11
