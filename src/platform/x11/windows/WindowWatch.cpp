#include "platform/x11/windows/WindowWatch.h"

#include "platform/x11/connection/XcbEvents.h"

#include <algorithm>
#include <array>
#include <utility>

namespace corvane::x11 {

namespace {

/// A safety net for window managers that forget to tell.
constexpr std::chrono::milliseconds longestTrustInList(500);

} // namespace

WindowWatch::WindowWatch(const XcbConnection &connection)
    : connection_(connection),
      masks_(connection),
      reader_(connection) {}

void WindowWatch::catchUp() {
    if (!rootEvents_) {
        rootEvents_.emplace(masks_.select(connection_.root(), XCB_EVENT_MASK_PROPERTY_CHANGE));
    }
    while (const XcbReply<xcb_generic_event_t> event{xcb_poll_for_event(connection_.get())}) {
        handle(*event);
    }
}

/// What nobody reads must not gather.
void WindowWatch::rest() {
    rootEvents_.reset();
    watched_.clear();
    answer_.reset();
    // The number of a window that goes meanwhile may be another's then.
    owners_.reset();
    connection_.flush();
}

std::shared_ptr<const WindowWatch::Owners> WindowWatch::owners() {
    if (!owners_ || isListStale_ || Clock::now() - listRead_ >= longestTrustInList) {
        refreshList();
    }
    return owners_;
}

/// Whose window one is does not change, so that only new ones are asked for.
void WindowWatch::refreshList() {
    const std::vector<xcb_window_t> windows = reader_.windows();
    std::map<xcb_window_t, WindowOwner> known;
    if (owners_) {
        for (const WindowOwner &owner : *owners_) {
            known.emplace(owner.window, owner);
        }
    }
    std::vector<xcb_window_t> unknown;
    std::ranges::copy_if(windows, std::back_inserter(unknown),
                         [&known](xcb_window_t window) { return !known.contains(window); });
    for (WindowOwner &owner : reader_.owners(unknown)) {
        known.emplace(owner.window, std::move(owner));
    }
    auto owners = std::make_shared<Owners>();
    for (const xcb_window_t window : windows) {
        owners->push_back(known.at(window));
    }
    owners_ = std::move(owners);
    answer_.reset();
    isListStale_ = false;
    listRead_ = Clock::now();
}

std::shared_ptr<const WindowWatch::Windows> WindowWatch::windowsOf(std::int32_t processIdentifier) {
    const auto owners = this->owners();
    if (processIdentifier != watchedProcess_) {
        watched_.clear();
        answer_.reset();
        watchedProcess_ = processIdentifier;
    }
    if (answer_) {
        return answer_;
    }
    std::vector<xcb_window_t> windows;
    for (const WindowOwner &owner : *owners) {
        if (owner.processIdentifier == processIdentifier) {
            windows.push_back(owner.window);
        }
    }
    refresh(windows);
    auto answer = std::make_shared<Windows>();
    for (const xcb_window_t window : windows) {
        const auto watched = watched_.find(window);
        if (watched != watched_.end() && watched->second.facts->layer == 0 &&
            !watched->second.facts->isDesktop) {
            answer->push_back(watched->second.facts);
        }
    }
    answer_ = std::move(answer);
    return answer_;
}

void WindowWatch::refresh(const std::vector<xcb_window_t> &windows) {
    std::vector<xcb_window_t> stale;
    for (const xcb_window_t window : windows) {
        Watched &watched = watch(window);
        if (watched.isStale) {
            stale.push_back(window);
        } else if (const auto place = watched.newPlace()) {
            watched.facts = std::make_shared<const WindowInfo>(watched.facts->at(*place));
        }
    }
    if (!stale.empty()) {
        readAgain(stale);
    }
}

void WindowWatch::readAgain(const std::vector<xcb_window_t> &stale) {
    auto facts = reader_.facts(stale);
    for (const xcb_window_t window : stale) {
        const auto found = std::ranges::find(facts, window, &WindowInfo::window);
        if (found == facts.end()) {
            watched_.erase(window);
            continue;
        }
        Watched &watched = watched_.at(window);
        watched.facts = std::make_shared<const WindowInfo>(std::move(*found));
        watched.isStale = false;
    }
}

WindowWatch::Watched &WindowWatch::watch(xcb_window_t window) {
    const auto [entry, isNew] = watched_.try_emplace(window);
    Watched &watched = entry->second;
    if (isNew) {
        watched.events =
            masks_.select(window, XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_STRUCTURE_NOTIFY);
    }
    if (!watched.chain) {
        watched.chain.emplace(connection_, masks_, window);
    }
    return watched;
}

std::optional<Point> WindowWatch::Watched::newPlace() const {
    const auto place = chain ? chain->origin() : std::nullopt;
    return place == facts->origin ? std::nullopt : place;
}

void WindowWatch::handle(const xcb_generic_event_t &event) {
    switch (XcbEvents::typeOf(event)) {
    case XCB_PROPERTY_NOTIFY: {
        const auto &change = reinterpret_cast<const xcb_property_notify_event_t &>(event);
        if (change.window == connection_.root()) {
            rootChanged(change.atom);
        } else if (isTelling(change.atom)) {
            windowChanged(change.window, false);
        }
        break;
    }
    case XCB_CONFIGURE_NOTIFY:
        // A window manager tells programs in such events where it thinks their windows are.
        if (!XcbEvents::isSentByClient(event)) {
            windowMoved(reinterpret_cast<const xcb_configure_notify_event_t &>(event).window,
                        event);
        }
        break;
    case XCB_GRAVITY_NOTIFY:
        windowMoved(reinterpret_cast<const xcb_gravity_notify_event_t &>(event).window, event);
        break;
    case XCB_MAP_NOTIFY:
        windowChanged(reinterpret_cast<const xcb_map_notify_event_t &>(event).window, false);
        break;
    case XCB_UNMAP_NOTIFY:
        windowChanged(reinterpret_cast<const xcb_unmap_notify_event_t &>(event).window, false);
        break;
    case XCB_DESTROY_NOTIFY: {
        const auto window = reinterpret_cast<const xcb_destroy_notify_event_t &>(event).window;
        windowChanged(window, false);
        watched_.erase(window);
        break;
    }
    case XCB_REPARENT_NOTIFY:
        windowChanged(reinterpret_cast<const xcb_reparent_notify_event_t &>(event).window, true);
        break;
    default:
        break;
    }
}

void WindowWatch::rootChanged(xcb_atom_t property) {
    const WindowAtoms &atoms = reader_.atoms();
    if (property == atoms.clientList || property == atoms.supportingWmCheck) {
        // The number of a window that has gone may be another's soon.
        owners_.reset();
    } else if (property == atoms.clientListStacking) {
        isListStale_ = true;
    } else if (property == atoms.currentDesktop) {
        for (auto &[window, watched] : watched_) {
            watched.isStale = true;
        }
        answer_.reset();
    }
}

void WindowWatch::windowChanged(xcb_window_t window, bool isReparented) {
    for (auto &[client, watched] : watched_) {
        if (client == window || watched.isIn(window)) {
            watched.isStale = true;
            answer_.reset();
            if (isReparented) {
                watched.chain.reset();
            }
        }
    }
}

/// A window that is dragged is followed without asking for it.
void WindowWatch::windowMoved(xcb_window_t window, const xcb_generic_event_t &event) {
    for (auto &[client, watched] : watched_) {
        if (watched.chain && watched.chain->contains(window)) {
            watched.isStale = !watched.chain->takeNote(event) || watched.isStale;
            answer_.reset();
        }
    }
}

bool WindowWatch::isTelling(xcb_atom_t property) const {
    const WindowAtoms &atoms = reader_.atoms();
    const std::array telling{atoms.name,
                             atoms.state,
                             atoms.wmState,
                             atoms.desktop,
                             atoms.type,
                             atoms.frameExtents,
                             atoms.clientFrameExtents,
                             static_cast<xcb_atom_t>(XCB_ATOM_WM_NAME)};
    return std::ranges::find(telling, property) != telling.end();
}

} // namespace corvane::x11
